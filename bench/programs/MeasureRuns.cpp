// Runs programs in turns and prints, for each, the median of their processor time in milliseconds and the
// most memory that a run had, in KiB: MeasureRuns TURNS PROGRAM [ARGUMENT]... [-- PROGRAM [ARGUMENT]...]...
//
// This is a program of its own because it must be small: the system starts to count a new program's memory
// while that still shares the memory of the one that has started it.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Program {
    std::vector<char*> arguments; ///< With the program's path first and a null pointer last.
    std::vector<double> milliseconds;
    long mostKibibytes = 0;
};

std::vector<Program> programsOf(const std::vector<char*>& arguments) {
    std::vector<Program> programs(1);
    for (char* const argument : arguments)
        if (std::string_view(argument) == "--")
            programs.emplace_back();
        else
            programs.back().arguments.push_back(argument);
    for (Program& program : programs)
        program.arguments.push_back(nullptr);
    return programs;
}

double millisecondsOf(const timeval& time) {
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
}

/// Starts programs whose output and errors nobody needs. One may end with 1, as `vistrel` does after a
/// preview in which something could not be shown.
class Starter {
public:
    Starter() {
        ::posix_spawn_file_actions_init(&actions_);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_WRONLY, 0);
    }
    ~Starter() { ::posix_spawn_file_actions_destroy(&actions_); }
    Starter(const Starter&) = delete;
    Starter& operator=(const Starter&) = delete;

    void run(Program& program) const {
        pid_t child = 0;
        int status = -1;
        rusage usage{};
        char* const* const arguments = program.arguments.data();
        if (::posix_spawn(&child, arguments[0], &actions_, nullptr, arguments, ::environ) != 0 ||
            ::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) > 1)
            throw std::runtime_error(arguments[0]);
        program.milliseconds.push_back(millisecondsOf(usage.ru_utime) + millisecondsOf(usage.ru_stime));
        program.mostKibibytes = std::max(program.mostKibibytes, usage.ru_maxrss);
    }

private:
    posix_spawn_file_actions_t actions_;
};

double medianOf(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

int main(int count, char** arguments) try {
    const int turns = count > 2 ? std::atoi(arguments[1]) : 0;
    if (turns < 1)
        throw std::runtime_error("there is nothing to measure");
    std::vector<Program> programs = programsOf({arguments + 2, arguments + count});
    const Starter starter;
    for (int turn = 0; turn < turns; ++turn)
        for (Program& program : programs)
            starter.run(program);
    for (Program& program : programs)
        std::printf("%f %ld\n", medianOf(program.milliseconds), program.mostKibibytes);
} catch (const std::exception& error) {
    std::fprintf(stderr, "MeasureRuns: %s failed\n", error.what());
    return 1;
}
