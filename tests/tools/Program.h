// The program as its user meets it: arguments in; output, messages and exit code out.
#pragma once

#include "TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace qrtVistrelClasses4 {

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

struct Outcome {
    int exitCode = -1; ///< -1: ended by a signal.
    std::string out, err;
};

/// Runs the program on a copy of the samples, which also is its home. The user's own folder is an empty one.
class Program {
public:
    Program() {
        std::filesystem::copy(QRT_SAMPLES_FOLDER, home(), std::filesystem::copy_options::recursive);
        std::filesystem::create_directory(usersFolder());
    }

    std::string home() const { return folder_.file("home"); }
    std::string usersFolder() const { return folder_.file("user"); }
    std::string inHome(const std::string& name) const { return home() + "/" + name; }

    Outcome run(std::initializer_list<std::string> arguments) const {
        return runShell(commandLine(arguments) + " > " + quoted(folder_.file("out")));
    }

    /// Runs a shell command; what it leaves in the file "out" counts as output.
    Outcome runShell(const std::string& command) const {
        const std::string environment = "HOME=" + quoted(usersFolder()) + " XDG_CONFIG_HOME= ";
        const int status = std::system(
            ("export " + environment + "; " + command + " 2> " + quoted(folder_.file("err")) + " < /dev/null")
                .c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(folder_.file("out")),
                contentOf(folder_.file("err"))};
    }

    std::string commandLine(std::initializer_list<std::string> arguments) const {
        std::string line = quoted(VISTREL_PROGRAM) + " --home " + quoted(home());
        for (const std::string& argument : arguments)
            line += ' ' + quoted(argument);
        return line;
    }

private:
    static std::string quoted(const std::string& argument) { return "'" + argument + "'"; }

    TempFolder folder_;
};

} // namespace qrtVistrelClasses4
