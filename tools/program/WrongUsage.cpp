#include "tools/program/WrongUsage.h"

#include "platform/Platform.h"
#include "tools/program/Arguments.h"
#include "tools/program/Help.h"
#include "tools/program/NameDistance.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

/// The command whose arguments the parser came to.
CLI::App& innermost(CLI::App& program) {
    CLI::App* app = &program;
    while (!app->get_subcommands().empty())
        app = app->get_subcommands().front();
    return *app;
}

std::string namesOfCommandsBelow(const CLI::App& app) {
    std::string names;
    for (const CLI::App* command : CommandsBelow(app))
        names += (names.empty() ? "" : ", ") + command->get_name();
    return names;
}

/// What `app` took for its arguments. A mistyped command may be among them.
std::vector<std::string> wordsTakenBy(const CLI::App& app) {
    std::vector<std::string> words;
    for (const CLI::Option* option : app.get_options())
        if (option->get_positional())
            std::ranges::copy(option->results(), std::back_inserter(words));
    return words;
}

std::string unknownOption(const CLI::App& app, const std::string& option) {
    NearestName nearest(option);
    for (const CLI::App* each : PathTo(app))
        for (const CLI::Option* known : each->get_options())
            for (const std::string& name : known->get_lnames())
                nearest.offer("--" + name);
    return "there is no option " + option + nearest.hint();
}

/// Names the option, of `app` or a command above it, that does not take its value: the error does not.
std::optional<std::string> unusableValue(CLI::App& app) {
    for (CLI::App* each = &app; each; each = each->get_parent())
        for (CLI::Option* option : each->get_options())
            try {
                if (option->count() > 0)
                    option->run_callback();
            } catch (const CLI::ConversionError&) {
                return option->get_name() + " cannot be \"" + option->results().back() + "\"" +
                       (option->get_positional()
                            ? ""
                            : "; usage: " + option->get_name() + " " + option->get_type_name());
            }
    return std::nullopt;
}

/// Names the option, of `app` or a command above it, that has more values than it takes.
std::optional<std::string> repeatedOption(const CLI::App& app) {
    for (const CLI::App* each : PathTo(app))
        for (const CLI::Option* option : each->get_options())
            if (option->count() > 1 && static_cast<int>(option->count()) > option->get_items_expected_max())
                return option->get_name() + " is given " + std::to_string(option->count()) + " times";
    return std::nullopt;
}

/// A command below `app` that was taken for the argument in front of it.
std::optional<std::string> missingInFront(const CLI::App& app) {
    for (const CLI::Option* option : app.get_options())
        if (option->get_positional() && option->get_required() && option->count() > 0)
            if (const CLI::App* command = CommandBelow(app, option->results().front()))
                return option->get_name() + " is missing in front of " + command->get_name() +
                       "; usage: " + UsageOf(*command);
    return std::nullopt;
}

/// The text of `error`. A value that was not typed has the name of the environment variable that it is from.
std::string textOf(const CLI::ParseError& error, const CLI::App& program,
                   const std::vector<std::string>& typed) {
    std::string text = error.what();
    for (const CLI::Option* option : program.get_options())
        if (const std::string name = option->get_name();
            !option->get_envname().empty() && text.starts_with(name + ":") &&
            std::ranges::find(typed, name, &OptionName) == typed.end())
            return option->get_envname() + text.substr(name.size());
    return text;
}

/// The command that one of `words` may have been meant for.
std::optional<std::string> nearestCommand(const CLI::App& app, const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        NearestName nearest(word);
        for (const CLI::App* command : CommandsBelow(app))
            nearest.offer(command->get_name());
        if (!nearest.name().empty())
            return "there is no command " + word + nearest.hint();
    }
    return std::nullopt;
}

std::string missing(const CLI::App& app) {
    for (const CLI::App* each : PathTo(app)) {
        const auto lacking = each->get_options(
            [](const CLI::Option* option) { return option->get_required() && option->count() == 0; });
        if (!lacking.empty())
            return lacking.front()->get_name() + " is missing; usage: " + UsageOf(app);
    }
    if (const auto lacking = missingInFront(app)) // files take all words
        return *lacking;
    std::vector<std::string> words = wordsTakenBy(app);
    std::erase_if(words, [](const std::string& word) { return platform().files().hasEntry(word); });
    return nearestCommand(app, words).value_or(UnknownCommand(app, {}));
}

} // namespace

std::string UnknownCommand(const CLI::App& app, const std::vector<std::string>& words) {
    const bool isProgram = app.get_parent() == nullptr;
    const std::string others = isProgram ? R"(; "vistrel" alone lists the commands)"
                                         : "; choose one of " + namesOfCommandsBelow(app);
    if (words.empty())
        return (isProgram ? "a command is missing" : "a subcommand is missing") + others;
    if (auto nearest = nearestCommand(app, words))
        return *std::move(nearest);
    return "there is no command " + words.front() + others;
}

void AddWrongUsage(CLI::App& program, const CLI::ParseError& error, const std::vector<std::string>& typed,
                   ErrorLines& errors) {
    CLI::App& app = innermost(program);
    const std::string name = FullNameOf(app);
    errors.about(&app == &program ? "" : name.substr(program.get_name().size() + 1));
    const auto* const isExtra = dynamic_cast<const CLI::ExtrasError*>(&error);
    const auto* const isRequired = dynamic_cast<const CLI::RequiredError*>(&error);
    std::vector<std::string> left = program.remaining(true);
    std::erase(left, kEndOfOptions);
    const auto option = std::ranges::find_if(left, &IsOption);
    if ((isExtra || isRequired) && option != left.end())
        errors.add(unknownOption(app, OptionName(*option)));
    else if (isRequired && left.empty())
        errors.add(missing(app));
    else if (const auto lacking = isRequired ? missingInFront(app) : std::nullopt)
        errors.add(*lacking);
    else if (isRequired) {
        std::ranges::copy(wordsTakenBy(app), std::back_inserter(left));
        errors.add(UnknownCommand(app, left));
    } else if (isExtra && !left.empty())
        errors.add("\"" + left.front() + "\" is one argument too many; usage: " + UsageOf(app));
    else if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) && !typed.empty() && IsOption(typed.back()))
        errors.add(typed.back() + " needs a value");
    else if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        errors.add(repeatedOption(app).value_or(error.what()));
    else if (dynamic_cast<const CLI::ConversionError*>(&error))
        errors.add(unusableValue(app).value_or(error.what()));
    else
        errors.add(textOf(error, program, typed));
}

} // namespace qrtVistrelClasses4
