// vistrel: the library's work from the command line.
#include "platform/Platform.h"
#include "tools/Commands.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

/// Runs the command with the program's own services in the library's place.
ExitCode run(Session& session, const std::string& home) {
    const auto machine = makePlatform({.home = home});
    const ScopedPlatform platformScope(*machine);
    const ScopedErrorReporter reporterScope(session.errors);
    try {
        return session.command();
    } catch (const RuntimeError& error) {
        session.errors.add(error);
        return ExitCode::failed;
    }
}

/// A reader that wants no more is no failure.
bool print(std::string_view text) {
    return (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) ||
           errno == EPIPE;
}

ExitCode finish(Session& session, ExitCode code) {
    if (!print(session.out.str())) {
        session.errors.about({});
        session.errors.add("standard output cannot be written");
    }
    for (const std::string& line : session.errors.lines())
        std::cerr << line << '\n';
    return code == ExitCode::done && !session.errors.empty() ? ExitCode::failed : code;
}

ExitCode runProgram(int argumentCount, char** arguments) {
    Session session;
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
        return finish(session, code == 0 ? ExitCode::done : ExitCode::wrongUsage);
    }
    return finish(session, run(session, home));
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
