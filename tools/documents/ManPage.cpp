#include "tools/completion/Places.h"
#include "tools/documents/Pages.h"
#include "tools/documents/Roff.h"

#include <qrtVistrelClasses4/Version.h>

#include <algorithm>
#include <cctype>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kGeneralHeadings[] = {"Exit status", "Environment", "Files"};

std::string inCapitals(std::string_view text) {
    std::string capitals(text);
    std::ranges::transform(capitals, capitals.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return capitals;
}

std::string heading(std::string_view text) { return ".SH " + inCapitals(text) + "\n"; }

std::string listOf(const std::vector<ValueModel>& values) {
    std::string text;
    for (const ValueModel& value : values)
        text += ".TP\n\\fB" + RoffText(TypedFormOf(value)) + "\\fR\n" + RoffText(ExplanationOf(value)) + "\n";
    return text;
}

std::string optionsOf(const CommandModel& command, bool isProgram) {
    std::string text = listOf(command.arguments) + listOf(OwnOptionsOf(command));
    for (const CommandModel& below : command.commands)
        if (isProgram)
            text += (&below == &command.commands.front() ? ".SH COMMANDS\n" : "") +
                    (".TP\n\\fB" + RoffText(below.name)) + "\\fR\n" + RoffText(below.description) + ".\n";
        else
            text += ".SS " + RoffText(below.name) + "\n" + RoffText(below.description) + ".\n.PP\n\\fB" +
                    RoffText(below.usage) + "\\fR\n" + listOf(below.arguments) + listOf(OwnOptionsOf(below));
    return text;
}

std::string synopsisOf(const CommandModel& command, bool isProgram) {
    std::string text = "\\fB" + RoffText(command.usage) + "\\fR\n";
    if (!isProgram)
        for (const CommandModel& below : command.commands)
            text += ".br\n\\fB" + RoffText(below.usage) + "\\fR\n";
    return text;
}

/// Sections that a man page has elsewhere, or under no heading.
bool hasPlaceOfItsOwn(const HandSection& section) {
    return section.heading == kExampleHeading ||
           std::ranges::find(kGeneralHeadings, section.heading) != std::end(kGeneralHeadings);
}

std::string descriptionOf(const CommandModel& command, const HandWritten& written) {
    std::string text = RoffText(SummaryOf(command)) + "\n";
    for (const HandSection& section : written.sections) {
        if (hasPlaceOfItsOwn(section))
            continue;
        const std::string lines = RoffOf(section.lines);
        if (section.heading != kRemarksHeading)
            text += ".SS " + RoffText(section.heading) + "\n";
        else if (!lines.starts_with(kItemMark))
            text += ".PP\n";
        text += lines;
    }
    return text;
}

std::string seeAlso(const CommandModel& command, const CommandModel& program) {
    std::vector<std::string> names;
    if (&command != &program)
        names.push_back(ManNameOf(program));
    else
        std::ranges::transform(program.commands, std::back_inserter(names), &ManNameOf);
    return heading("See also") +
           Joined(names, ",\n",
                  [](const std::string& name) {
                      const std::size_t dot = name.rfind('.');
                      return ".BR " + RoffText(name.substr(0, dot)) + " (" + name.substr(dot + 1) + ")";
                  }) +
           "\n";
}

} // namespace

std::string ManNameOf(const CommandModel& command) {
    return Replaced(command.name, " ", [](char) { return "-"; }) + ".1";
}

std::string ManPageOf(const CommandModel& command, const CommandModel& program, const HandWritten& written,
                      const HandWritten& general) {
    const bool isProgram = &command == &program;
    const std::string name = ManNameOf(command).substr(0, ManNameOf(command).rfind('.'));
    std::string page = ".TH " + RoffText(inCapitals(name)) + " 1 \"\" \"vistrel " + std::string(kVersion) +
                       "\" \"User Commands\"\n";
    page += ".nh\n" + heading("Name") + RoffText(name) + " \\- " + RoffText(command.description) + "\n";
    page += heading("Synopsis") + synopsisOf(command, isProgram);
    page += heading("Description") + descriptionOf(command, written);
    page += heading("Options") + optionsOf(command, isProgram);
    if (!isProgram)
        page += ".PP\nThe options of the program, which every command takes, are in\n.BR vistrel (1).\n";
    page += heading("Examples") + RoffOf(LinesOf(written, kExampleHeading));
    for (const char* const each : kGeneralHeadings)
        page += heading(each) + RoffOf(LinesOf(general, each));
    return page + seeAlso(command, program);
}

} // namespace qrtVistrelClasses4
