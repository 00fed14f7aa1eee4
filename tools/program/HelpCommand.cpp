// vistrel help: what a command does, and what may be typed for it.
#include "tools/program/Commands.h"
#include "tools/program/ValueKinds.h"
#include "tools/program/WrongUsage.h"

#include <memory>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct HelpOptions {
    CLI::App* program;
    std::vector<std::string> names;
};

ExitCode explain(const HelpOptions& options, Session& session) {
    if (!options.names.empty())
        (void)SetUpCommand(*options.program, options.names.front(), session);
    const CLI::App* command = options.program;
    for (const std::string& name : options.names) {
        const CLI::App* const below = CommandBelow(*command, name);
        if (!below) {
            session.errors.about(command == options.program ? "" : command->get_name());
            session.errors.add(CommandsBelow(*command).empty() ? "there are no commands below it"
                                                               : UnknownCommand(*command, {name}));
            return ExitCode::wrongUsage;
        }
        command = below;
    }
    session.out << HelpOf(*command);
    return ExitCode::done;
}

} // namespace

void SetUpHelpCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<HelpOptions>(HelpOptions{command.get_parent(), {}});
    SetAction(command, session, options, &explain);
    command.add_option("COMMAND", options->names, "The command, and a subcommand of it; else the program")
        ->type_name(kCommandValue);
}

} // namespace qrtVistrelClasses4
