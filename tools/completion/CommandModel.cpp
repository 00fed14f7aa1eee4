#include "tools/completion/CommandModel.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

/// "always" and "never" of "always,never".
std::vector<std::string> partsOf(const std::string& list) { return CLI::detail::split(list, ','); }

/// Takes what the parser says about an option's values apart: "INT:INT in [1 - 64]", "WHEN:{always,never}".
void describeValue(const CLI::Option& option, ValueModel& model) {
    constexpr std::string_view rangeMark = ":INT in [";
    constexpr std::string_view to = " - ";
    const std::string text = option.get_type_name();
    model.value = text;
    if (const std::size_t list = text.find(":{"); list != text.npos) {
        model.value.resize(list);
        model.words = partsOf(text.substr(list + 2, text.size() - list - 3)); // without the braces
    } else if (const std::size_t range = text.find(rangeMark); range != text.npos) {
        model.value.resize(range);
        model.limits = text.substr(range + rangeMark.size());
        model.limits.pop_back(); // the bracket
        if (const std::size_t dash = model.limits.find(to); dash != model.limits.npos)
            model.limits.replace(dash, to.size(), " to ");
    }
    if (model.value == "INT")
        model.value = "NUMBER";
}

std::vector<std::string> namesOf(const std::set<CLI::Option*>& options) {
    std::vector<std::string> names;
    std::ranges::transform(options, std::back_inserter(names),
                           [](const CLI::Option* each) { return each->get_name(); });
    std::ranges::sort(names);
    return names;
}

ValueModel modelOf(const CLI::Option& option) {
    ValueModel model;
    model.description = option.get_description();
    model.excludes = namesOf(option.get_excludes());
    model.needs = namesOf(option.get_needs());
    model.variable = option.get_envname();
    model.isRequired = option.get_required();
    model.isRepeated = option.get_expected_max() == CLI::detail::expected_max_vector_size;
    if (option.get_items_expected_max() > 0)
        describeValue(option, model);
    if (option.get_positional()) {
        model.names.push_back(option.get_name());
        return model;
    }
    for (const std::string& name : option.get_snames())
        model.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        model.names.push_back("--" + name);
    return model;
}

CommandModel modelOf(const CLI::App& app) {
    const auto help = std::dynamic_pointer_cast<const HelpWithExample>(app.get_formatter());
    CommandModel model{.name = FullNameOf(app),
                       .task = app.get_group(),
                       .description = app.get_description(),
                       .example = help ? help->example() : "",
                       .usage = UsageOf(app),
                       .footer = app.get_footer(),
                       .arguments = {},
                       .options = {},
                       .commands = {}};
    for (const CLI::Option* option : app.get_options())
        (option->get_positional() ? model.arguments : model.options).push_back(modelOf(*option));
    for (const CLI::App* command : CommandsBelow(app))
        model.commands.push_back(modelOf(*command));
    return model;
}

} // namespace

CommandModel ModelOf(CLI::App& program, Session& session) {
    for (const std::string& name : NamesOfCommands())
        (void)SetUpCommand(program, name, session);
    return modelOf(program);
}

} // namespace qrtVistrelClasses4
