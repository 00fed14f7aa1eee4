#include "tools/documents/Pages.h"

#include "tools/completion/Places.h"

namespace qrtVistrelClasses4 {
namespace {

std::string listed(const std::vector<std::string>& words) {
    return Joined(words, ", ", [](const std::string& word) { return word; });
}

} // namespace

std::string ShortNameOf(const CommandModel& command) {
    const std::size_t blank = command.name.find(' ');
    return blank == command.name.npos ? "" : command.name.substr(blank + 1);
}

std::vector<ValueModel> OwnOptionsOf(const CommandModel& command) {
    std::vector<ValueModel> options = command.options;
    if (!ShortNameOf(command).empty())
        std::erase_if(options, [](const ValueModel& option) { return option.names.back() == "--help"; });
    return options;
}

std::string TypedFormOf(const ValueModel& value) {
    const bool isOption = value.names.front().starts_with('-');
    return listed(value.names) + (isOption && !value.value.empty() ? " " + value.value : "");
}

std::string ExplanationOf(const ValueModel& value) {
    std::vector<std::string> notes;
    if (!value.limits.empty())
        notes.push_back(value.limits);
    if (!value.words.empty())
        notes.push_back("one of " + listed(value.words));
    if (value.isRequired && value.names.front().starts_with('-'))
        notes.emplace_back("must be given");
    if (!value.isRequired && !value.names.front().starts_with('-'))
        notes.emplace_back("may be left out");
    if (!value.excludes.empty())
        notes.push_back("not together with " + listed(value.excludes));
    if (!value.needs.empty())
        notes.push_back("only with " + listed(value.needs));
    if (!value.variable.empty())
        notes.push_back("else the value of the environment variable " + value.variable);
    const std::string all = Joined(notes, "; ", [](const std::string& note) { return note; });
    return value.description + (all.empty() ? "" : " (" + all + ")") + ".";
}

std::string SummaryOf(const CommandModel& command) {
    const bool hasNote = !command.footer.empty() && command.footer != kUsualFooter;
    return command.description + "." + (hasNote ? " " + command.footer : "");
}

} // namespace qrtVistrelClasses4
