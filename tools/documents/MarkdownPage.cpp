#include "tools/documents/Pages.h"

#include "tools/completion/Places.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kNote =
    "<!-- Write between here and \"Usage\". The rest is made of the program's options by\n"
    "     cmake --build --preset release --target command_pages -->\n\n";

std::string escaped(const std::string& text) {
    return Replaced(text, "*_<`", [](char letter) { return std::string{'\\', letter}; });
}

std::string listOf(const std::vector<ValueModel>& values) {
    return Joined(values, "", [](const ValueModel& value) {
        return "- `" + TypedFormOf(value) + "`: " + escaped(ExplanationOf(value)) + "\n";
    });
}

/// What is typed for a command, and its arguments and options.
std::string usageOf(const CommandModel& command) {
    const std::string list = listOf(command.arguments) + listOf(OwnOptionsOf(command));
    return "```text\n" + command.usage + "\n```\n\n" + list + (list.empty() ? "" : "\n");
}

/// The commands with links to their pages, under the headings of their tasks.
std::string contentsOf(const CommandModel& program) {
    std::string text, task;
    for (const CommandModel& command : program.commands) {
        if (command.task != task)
            text += (text.empty() ? "" : "\n") + ("**" + command.task + "**\n\n");
        task = command.task;
        text +=
            "- [`" + command.name + "`](" + PageNameOf(command) + "): " + escaped(command.description) + "\n";
    }
    return text + "\n";
}

} // namespace

std::string PageNameOf(const CommandModel& command) {
    const std::string name = ShortNameOf(command);
    return (name.empty() ? "README" : name) + ".md";
}

std::string PageOf(const CommandModel& command, const CommandModel& program, const HandWritten& written) {
    const bool isProgram = &command == &program;
    std::string page = "# " + command.name + "\n\n" + escaped(SummaryOf(command)) + "\n\n";
    page += isProgram ? contentsOf(program) : "";
    page += kNote;
    page += written.text.empty() ? "## " + std::string(kExampleHeading) + "\n\n" : written.text;
    page += "## " + std::string(kUsageHeading) + "\n\n" + usageOf(command);
    if (!isProgram)
        for (const CommandModel& below : command.commands)
            page += "### " + below.name + "\n\n" + escaped(below.description) + ". Example: `" +
                    below.example + "`.\n\n" + usageOf(below);
    if (isProgram)
        return page.substr(0, page.size() - 1);
    return page + "Every command also takes the [options of the program](README.md#usage).\n";
}

} // namespace qrtVistrelClasses4
