// vistrel: the library on the command line.
#include "frame/Traced.h"
#include "platform/Platform.h"
#include "tools/preview/PictureFiles.h"
#include "tools/program/Arguments.h"
#include "tools/program/Commands.h"
#include "tools/program/Program.h"
#include "tools/program/StandardOutput.h"
#include "tools/program/WrongUsage.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Runs the command on the machine that the options ask for, with the program's own error reporter.
ExitCode run(Session& session, const ProgramOptions& options) {
    const auto machine = makePlatform({.home = options.home});
    const ScopedPlatform platformScope(*machine);
    const ScopedMessageBoxes boxesScope(machine->messageBoxes()); // its questions have options that answer
    const ScopedScreen screenScope(session.out, ScreenFor(machine->console(), options.screen));
    const ScopedErrorReporter reporterScope(session.errors);
    PictureFiles pictures;
    const ScopedPictureReader picturesScope(pictures);
    std::optional<ExitCode> code;
    if (const auto error = ErrorOf([&] { code = session.command(); }))
        session.errors.add(*error);
    return code.value_or(session.failure);
}

ExitCode finish(StandardOutput& output, Session& session, ExitCode code, Console& console) {
    ErrorLines& errors = session.errors;
    if (!output.finish()) {
        errors.about({});
        errors.add("standard output cannot be written");
    }
    for (const std::string& line : errors.lines())
        (void)console.write(StandardStream::error, line + '\n');
    return code != ExitCode::wrongUsage && !errors.empty() ? session.failure : code;
}

/// Does what the arguments ask for.
ExitCode runArguments(const std::vector<std::string>& arguments, CLI::App& program, Session& session,
                      const ProgramOptions& options) {
    if (arguments.empty()) {
        session.out << program.get_description() << ".\n"
                    << ListOfCommands(program) << "\n\"vistrel help COMMAND\" explains a command.\n";
        return ExitCode::done;
    }
    if (const CLI::App* const command = CommandToExplain(program, session, arguments)) {
        session.out << HelpOf(*command);
        return ExitCode::done;
    }
    try {
        std::vector<std::string> ordered = InParserOrder(program, session, arguments);
        std::ranges::reverse(ordered); // the parser takes them from the end
        program.parse(std::move(ordered));
    } catch (const CLI::Success& request) { // for the version
        program.exit(request, session.out);
        return ExitCode::done;
    } catch (const CLI::ParseError& error) {
        AddWrongUsage(program, error, arguments, session.errors);
        return ExitCode::wrongUsage;
    }
    return run(session, options);
}

ExitCode runProgram(const std::vector<std::string>& arguments, Console& console) {
    StandardOutput output(console);
    std::ostream out(&output);
    Session session{out, {}, {}};
    ProgramOptions options;
    const std::unique_ptr<CLI::App> program = MakeProgram(options);
    const ExitCode code = runArguments(arguments, *program, session, options);
    return finish(output, session, code, console);
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
