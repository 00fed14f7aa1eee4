// The help of the program and its commands.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// Help that starts with an example of use, and explains all that may be typed for a command: also arguments
/// and options of the commands above it. Descriptions are broken into lines of less than 80 characters.
class HelpWithExample final : public CLI::Formatter {
public:
    explicit HelpWithExample(std::string example);

    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
    std::string make_description(const CLI::App* app) const override;
    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_positionals(const CLI::App* app) const override;
    std::string make_subcommands(const CLI::App* app, CLI::AppFormatMode mode) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
    std::string make_footer(const CLI::App* app) const override;

    const std::string& example() const { return example_; }

private:
    std::string example_;
};

/// The program, and the commands that lead from it to `command`, which is the last one.
std::vector<const CLI::App*> PathTo(const CLI::App& command);

std::vector<const CLI::App*> CommandsBelow(const CLI::App& app);
/// The command of that name below `app`; null if there is none.
const CLI::App* CommandBelow(const CLI::App& app, const std::string& name);

/// The names of the commands from the program to `command`, the program's own first: "vistrel signs
/// add".
std::string FullNameOf(const CLI::App& command);

/// "vistrel frames FILE insert [OPTIONS] AT".
std::string UsageOf(const CLI::App& command);

/// The whole help of `command`, which must have been set up.
std::string HelpOf(const CLI::App& command);

/// The commands of `program` under headings, one a line.
std::string ListOfCommands(const CLI::App& program);

} // namespace qrtVistrelClasses4
