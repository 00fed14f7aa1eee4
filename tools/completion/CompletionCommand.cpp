// vistrel completion: scripts that make shells complete commands, options, values and files.
#include "tools/completion/Places.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace qrtVistrelClasses4 {
namespace {

struct Shell {
    std::string_view name;
    std::string (*script)(const std::vector<CommandPlace>& places);
};

constexpr Shell kShells[] = {
    {"bash", &BashScript},
    {"zsh", &ZshScript},
    {"fish", &FishScript},
    {"powershell", &PowerShellScript},
};

struct CompletionOptions {
    CLI::App* program;
    std::string shell;
};

ExitCode printScript(const CompletionOptions& options, Session& session) {
    const auto* const shell = std::ranges::find(kShells, options.shell, &Shell::name);
    session.out << shell->script(PlacesOf(ModelOf(*options.program, session)));
    return ExitCode::done;
}

} // namespace

void SetUpCompletionCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<CompletionOptions>(CompletionOptions{command.get_parent(), {}});
    SetAction(command, session, options, &printScript);
    std::vector<std::string> names;
    std::ranges::transform(kShells, std::back_inserter(names),
                           [](const Shell& shell) { return std::string(shell.name); });
    command.add_option("SHELL", options->shell, "The shell")->check(CLI::IsMember(names))->required();
}

} // namespace qrtVistrelClasses4
