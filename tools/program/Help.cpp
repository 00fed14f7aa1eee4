#include "tools/program/Help.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kNameColumn = 26;  ///< Characters.
constexpr std::size_t kWidthOfHelp = 80; ///< Characters, of which help leaves the last one free.

/// `text` with line breaks in place of blanks, so that its lines fit beside `indent` characters.
std::string wrapped(std::string text, std::size_t indent) {
    const std::size_t width = kWidthOfHelp - 1 - indent;
    for (std::size_t start = 0; text.size() - start > width;) {
        std::size_t blank = text.rfind(' ', start + width);
        if (blank == text.npos || blank < start) // one long word
            blank = text.find(' ', start);
        if (blank == text.npos)
            break;
        text[blank] = '\n';
        start = blank + 1;
    }
    return text;
}

std::vector<const CLI::Option*> optionsOf(const CLI::App& app, bool isPositional) {
    return app.get_options([&](const CLI::Option* option) {
        return option->get_positional() == isPositional && option != app.get_help_ptr();
    });
}

std::string argumentsOf(const CLI::App& app) {
    std::string text;
    for (const CLI::Option* option : optionsOf(app, true))
        text += " " + CLI::Formatter().make_option_usage(option);
    return text;
}

std::string requiredOptionsOf(const CLI::App& app) {
    std::string text;
    for (const CLI::Option* option : optionsOf(app, false))
        if (option->get_required())
            text += " " + option->get_name() + " " + option->get_type_name();
    return text;
}

} // namespace

std::vector<const CLI::App*> PathTo(const CLI::App& command) {
    std::vector<const CLI::App*> path;
    for (const CLI::App* app = &command; app; app = app->get_parent())
        path.push_back(app);
    std::ranges::reverse(path);
    return path;
}

std::vector<const CLI::App*> CommandsBelow(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

const CLI::App* CommandBelow(const CLI::App& app, const std::string& name) {
    const auto found =
        app.get_subcommands([&](const CLI::App* command) { return command->get_name() == name; });
    return found.empty() ? nullptr : found.front();
}

std::string FullNameOf(const CLI::App& command) {
    std::string name;
    for (const CLI::App* app : PathTo(command))
        name += (name.empty() ? "" : " ") + app->get_name();
    return name;
}

std::string UsageOf(const CLI::App& command) {
    std::string usage;
    for (const CLI::App* app : PathTo(command)) {
        usage += (usage.empty() ? "" : " ") + app->get_name();
        usage += app == &command ? " [OPTIONS]" : "";
        usage += requiredOptionsOf(*app) + argumentsOf(*app);
    }
    return usage + (CommandsBelow(command).empty() ? "" : command.get_parent() ? " SUBCOMMAND" : " COMMAND");
}

std::string HelpOf(const CLI::App& command) {
    return command.get_formatter()->make_help(&command, {}, CLI::AppFormatMode::Normal);
}

std::string ListOfCommands(const CLI::App& program) {
    constexpr std::size_t nameColumn = 12; // characters
    CLI::Formatter formatter;
    formatter.column_width(nameColumn);
    return formatter.make_subcommands(&program, CLI::AppFormatMode::Normal);
}

HelpWithExample::HelpWithExample(std::string example) : example_(std::move(example)) {
    column_width(kNameColumn);
    label("Positionals", "Arguments");
}

std::string HelpWithExample::make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const {
    return "Example: " + example_ + "\n\n" + CLI::Formatter::make_help(app, std::move(name), mode);
}

std::string HelpWithExample::make_description(const CLI::App* app) const {
    return wrapped(CLI::Formatter::make_description(app), 0);
}

std::string HelpWithExample::make_usage(const CLI::App* app, std::string) const {
    return "Usage: " + UsageOf(*app) + "\n";
}

std::string HelpWithExample::make_subcommand(const CLI::App* command) const {
    std::ostringstream out;
    CLI::detail::format_help(out, command->get_name(), wrapped(command->get_description(), kNameColumn),
                             kNameColumn);
    return out.str();
}

std::string HelpWithExample::make_option_desc(const CLI::Option* option) const {
    return wrapped(CLI::Formatter::make_option_desc(option), kNameColumn);
}

std::string HelpWithExample::make_footer(const CLI::App* app) const {
    return wrapped(CLI::Formatter::make_footer(app), 0);
}

std::string HelpWithExample::make_positionals(const CLI::App* app) const {
    std::vector<const CLI::Option*> all;
    for (const CLI::App* each : PathTo(*app))
        std::ranges::copy(optionsOf(*each, true), std::back_inserter(all));
    return all.empty() ? "" : make_group(get_label("Positionals"), true, all);
}

std::string HelpWithExample::make_subcommands(const CLI::App* app, CLI::AppFormatMode mode) const {
    std::string text;
    for (const CLI::App* above = app->get_parent(); above && above->get_parent(); above = above->get_parent())
        if (const auto options = optionsOf(*above, false); !options.empty())
            text += make_group("Options of every \"" + FullNameOf(*above) + "\"", false, options);
    return text + CLI::Formatter::make_subcommands(app, mode);
}

} // namespace qrtVistrelClasses4
