// vistrel: the library on the command line.
#include "frame/Traced.h"
#include "platform/Platform.h"
#include "tools/program/Commands.h"
#include "tools/program/StandardOutput.h"

#include <exception>
#include <sstream>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Runs the command on the machine that `home` asks for, with the program's own error reporter.
ExitCode run(Session& session, const std::optional<std::string>& home) {
    const auto machine = makePlatform({.home = home});
    const ScopedPlatform platformScope(*machine);
    const ScopedErrorReporter reporterScope(session.errors);
    ExitCode code = ExitCode::failed;
    if (const auto error = ErrorOf([&] { code = session.command(); }))
        session.errors.add(*error);
    return code;
}

ExitCode finish(StandardOutput& output, ErrorLines& errors, ExitCode code, Console& console) {
    if (!output.finish()) {
        errors.about({});
        errors.add("standard output cannot be written");
    }
    for (const std::string& line : errors.lines())
        (void)console.write(StandardStream::error, line + '\n');
    return code == ExitCode::done && !errors.empty() ? ExitCode::failed : code;
}

/// Why `path` cannot be a home; empty if it can.
std::string faultOfFolder(const std::string& path) {
    switch (platform().files().kindOf(path)) {
    case EntryKind::folder:
        return {};
    case EntryKind::missing:
        return "there is no folder " + path;
    default:
        return path + " is not a folder";
    }
}

ExitCode runProgram(const std::vector<std::string>& arguments, Console& console) {
    StandardOutput output(console);
    std::ostream out(&output);
    Session session{out, {}, {}};
    std::optional<std::string> home;
    CLI::App program(
        "Shows and changes playfiles, the list of signs, commands and settings of LED message signs",
        "vistrel");
    program.formatter(std::make_shared<ExampleFirst>("vistrel show harbour.playfile"));
    program.require_subcommand(1);
    AddCommands(program, session);
    program.set_version_flag("--version", "vistrel " VISTREL_VERSION);
    program
        .add_option(
            "--home", home,
            "Folder that holds settings, INI files and fonts, in place of the system's and the user's own")
        ->envname("VISTREL_HOME")
        ->check(CLI::Validator(&faultOfFolder, "DIR"));
    try {
        program.parse(std::vector<std::string>(arguments.rbegin(),
                                               arguments.rend())); // the parser takes them from the end
    } catch (const CLI::ParseError& error) {
        std::ostringstream explanation;
        const int code = program.exit(error, session.out, explanation);
        (void)console.write(StandardStream::error, explanation.str());
        return finish(output, session.errors, code == 0 ? ExitCode::done : ExitCode::wrongUsage, console);
    }
    return finish(output, session.errors, run(session, home), console);
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int argumentCount, char** arguments) {
    namespace library = qrtVistrelClasses4;
    const std::vector<std::string> typed = library::StartProgram(argumentCount, arguments);
    library::Console& console = library::platform().console();
    try {
        return static_cast<int>(library::runProgram(typed, console));
    } catch (const std::exception& error) {
        (void)console.write(library::StandardStream::error, std::string("vistrel: ") + error.what() + '\n');
    }
    return static_cast<int>(library::ExitCode::failed);
}
