// vistrel: the library's work from the command line.
#include "platform/Platform.h"
#include "tools/program/Commands.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <iostream>
#include <streambuf>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Runs the command with the program's own services in the library's place.
ExitCode run(Session& session, const std::string& home) {
    const auto machine = makePlatform({.home = home});
    const ScopedPlatform platformScope(*machine);
    const ScopedErrorReporter reporterScope(session.errors);
    try {
        return session.command();
    } catch (const std::exception&) {
        session.errors.add(CurrentError());
        return ExitCode::failed;
    }
}

/// Standard output, which gets long texts in pieces. A reader that wants no more is no failure.
class StandardOutput final : public std::streambuf {
public:
    StandardOutput() { startPiece(); }
    /// False when something could not be written.
    bool finish() {
        handOn();
        return !hasFailed_;
    }

private:
    int_type overflow(int_type next) override {
        handOn();
        return traits_type::eq_int_type(next, traits_type::eof()) ? traits_type::not_eof(next)
                                                                  : sputc(traits_type::to_char_type(next));
    }
    void startPiece() { setp(piece_.data(), piece_.data() + piece_.size()); }
    void handOn() {
        const auto size = static_cast<std::size_t>(pptr() - pbase());
        if (isOpen_ && (std::fwrite(pbase(), 1, size, stdout) != size || std::fflush(stdout) != 0)) {
            isOpen_ = false;
            hasFailed_ = errno != EPIPE;
        }
        startPiece();
    }

    std::vector<char> piece_ = std::vector<char>(std::size_t{1} << 20);
    bool isOpen_ = true;
    bool hasFailed_ = false;
};

ExitCode finish(StandardOutput& output, ErrorLines& errors, ExitCode code) {
    if (!output.finish()) {
        errors.about({});
        errors.add("standard output cannot be written");
    }
    for (const std::string& line : errors.lines())
        std::cerr << line << '\n';
    return code == ExitCode::done && !errors.empty() ? ExitCode::failed : code;
}

ExitCode runProgram(int argumentCount, char** arguments) {
    StandardOutput output;
    std::ostream out(&output);
    Session session{out, {}, {}};
    std::string home;
    CLI::App program(
        "Shows and changes playfiles, the list of signs, commands and settings of LED message signs",
        "vistrel");
    program.formatter(std::make_shared<ExampleFirst>("vistrel show harbour.playfile"));
    program.set_version_flag("--version", "vistrel " VISTREL_VERSION);
    program.require_subcommand(1);
    program
        .add_option(
            "--home", home,
            "Folder that holds settings, INI files and fonts, in place of the system's and the user's own")
        ->check(CLI::ExistingDirectory);
    AddShowCommand(program, session);
    AddSaveCommand(program, session);
    AddExportCommand(program, session);
    AddPreviewCommand(program, session);
    AddFramesCommand(program, session);
    AddConvertCommand(program, session);
    AddInspectCommand(program, session);
    AddSignsCommand(program, session);
    AddCommandsCommand(program, session);
    AddTextCommand(program, session);
    AddRecentCommand(program, session);
    AddSettingsCommand(program, session);
    AddEffectsCommand(program, session);
    AddFontCommand(program, session);
    try {
        program.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        const int code = program.exit(error, session.out, std::cerr);
        return finish(output, session.errors, code == 0 ? ExitCode::done : ExitCode::wrongUsage);
    }
    return finish(output, session.errors, run(session, home));
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int argumentCount, char** arguments) {
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is an error of writing, not the end of the process
    try {
        return static_cast<int>(qrtVistrelClasses4::runProgram(argumentCount, arguments));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vistrel: %s\n", error.what());
    } catch (...) {
        std::fputs("vistrel: internal error\n", stderr);
    }
    return static_cast<int>(qrtVistrelClasses4::ExitCode::failed);
}
