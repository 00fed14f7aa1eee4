// vistrel lines: lines of frames changed, inserted, deleted and moved.
#include "tools/playfile/Editing.h"
#include "tools/playfile/TypedProperties.h"
#include "tools/program/AllowedValues.h"
#include "tools/program/Commands.h"
#include "tools/program/Decimal.h"
#include "tools/program/NumberSelection.h"
#include "tools/program/ValueKinds.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using LineNumber = Decimal<std::int32_t>;
using Lines = OneBasedArray<LineRecord>;

constexpr const char* kLine = "line";
constexpr std::int32_t kMostLines = std::numeric_limits<std::int16_t>::max();

struct LinesOptions : EditOptions {
    NumberSelection frames;
    NumberSelection lines;
    LineNumber at, from, to;
    PropertyOptions properties;
};

/// Whether a line is `number` of `last`. If not, the error names the frame.
bool isLine(const std::string& frame, const char* argument, std::int32_t number, std::int32_t last,
            ErrorLines& errors) {
    return IsWithin((frame + argument).c_str(), number, last, kLine, errors);
}

std::string inFrame(std::int32_t frame) { return "frame " + std::to_string(frame) + ": "; }

std::optional<std::vector<std::int32_t>> linesOf(const LinesOptions& options, EditedPlayfile& edited,
                                                 std::int32_t frame, ErrorLines& errors) {
    return options.lines.numbers((inFrame(frame) + "LINES").c_str(),
                                 edited.frames().at(frame).lines.upperBound(), kLine, errors);
}

/// False, after adding an error, if a frame cannot have `count` lines. A frame with a fixed number keeps
/// that.
bool mayHaveLines(const FrameRecord& frame, std::int32_t number, std::int32_t count, ErrorLines& errors) {
    if (count > kMostLines)
        errors.add(inFrame(number) + "a frame has at most " + std::to_string(kMostLines) + " lines");
    else if (frame.FixedNumberOfLines != 0 && frame.FixedNumberOfLines != count)
        errors.add(inFrame(number) + "FixedNumberOfLines keeps it at " +
                   Counted(frame.FixedNumberOfLines, kLine));
    else
        return true;
    return false;
}

/// Calls `edit(frame)` for the chosen frames, as far as each returns true, and says what was done.
template <class EditFrame>
ExitCode editChosen(const LinesOptions& options, Session& session, const std::string& done,
                    EditFrame editFrame) {
    return EditPlayfiles(options, session, [&](EditedPlayfile& edited, ErrorLines& errors) {
        const auto numbers = options.frames.numbers("FRAMES", edited.frames().upperBound(), "frame", errors);
        if (!numbers)
            return;
        for (const std::int32_t number : *numbers)
            if (!editFrame(edited, number, errors))
                return;
        edited.done = (edited.isChanged ? done : "changed nothing in ") + SelectionText("frame", *numbers);
    });
}

ExitCode setLines(const LinesOptions& options, Session& session) {
    const auto assignments = AssignmentsFrom<LineRecord>(options.properties, session.errors);
    if (!assignments)
        return ExitCode::wrongUsage;
    return editChosen(options, session, "changed lines of ",
                      [&](EditedPlayfile& edited, std::int32_t frame, ErrorLines& errors) {
                          const auto numbers = linesOf(options, edited, frame, errors);
                          if (!numbers)
                              return false;
                          for (const std::int32_t number : *numbers)
                              edited.change(frame, number,
                                            [&](LineRecord& line) { assignments->applyTo(line); });
                          edited.isChanged = !edited.changes().empty();
                          return true;
                      });
}

ExitCode insertLine(const LinesOptions& options, Session& session) {
    const auto assignments = AssignmentsFrom<LineRecord>(options.properties, session.errors);
    if (!assignments)
        return ExitCode::wrongUsage;
    const std::int32_t at = options.at.value;
    return editChosen(options, session, "inserted line " + std::to_string(at) + " in ",
                      [&](EditedPlayfile& edited, std::int32_t number, ErrorLines& errors) {
                          FrameRecord& frame = edited.frames().at(number);
                          const std::int32_t count = frame.lines.upperBound() + 1;
                          if (!isLine(inFrame(number), "AT", at, count, errors) ||
                              !mayHaveLines(frame, number, count, errors))
                              return false;
                          frame.lines.resize(count);
                          assignments->applyTo(frame.lines.at(count));
                          frame.lines.move(count, at);
                          return true;
                      });
}

ExitCode deleteLines(const LinesOptions& options, Session& session) {
    return editChosen(options, session, "deleted lines of ",
                      [&](EditedPlayfile& edited, std::int32_t number, ErrorLines& errors) {
                          auto numbers = linesOf(options, edited, number, errors);
                          if (!numbers)
                              return false;
                          std::ranges::reverse(*numbers); // so that the others keep theirs
                          FrameRecord& frame = edited.frames().at(number);
                          for (const std::int32_t line : *numbers)
                              frame.lines.erase(line);
                          if (frame.lines.empty()) // a frame always has one
                              frame.lines.resize(1);
                          return mayHaveLines(frame, number, frame.lines.upperBound(), errors);
                      });
}

ExitCode moveLine(const LinesOptions& options, Session& session) {
    const std::int32_t from = options.from.value, to = options.to.value;
    return editChosen(options, session,
                      "moved line " + std::to_string(from) + " to " + std::to_string(to) + " in ",
                      [&](EditedPlayfile& edited, std::int32_t number, ErrorLines& errors) {
                          Lines& lines = edited.frames().at(number).lines;
                          if (!isLine(inFrame(number), "FROM", from, lines.upperBound(), errors) ||
                              !isLine(inFrame(number), "TO", to, lines.upperBound(), errors))
                              return false;
                          lines.move(from, to);
                          return true;
                      });
}

} // namespace

void SetUpLinesCommand(CLI::App& lines, Session& session) {
    const auto options = std::make_shared<LinesOptions>();
    lines.require_subcommand(1);
    AddEditOptions(lines, *options, References::kept);
    const auto add = [&](const char* name, auto run, const char* description, const char* example) {
        CLI::App* command = &AddCommand(lines, name, description, example, session, options, run);
        command
            ->add_option("FRAMES", options->frames,
                         std::string("The frames whose lines are meant, ") + kSelectionHelp)
            ->required();
        return command;
    };
    const auto takeLines = [&](CLI::App* command) {
        command
            ->add_option("LINES", options->lines,
                         std::string("The lines of each of these frames, ") + kSelectionHelp)
            ->required();
    };

    CLI::App* set = add("set", &setLines, "Changes properties of lines",
                        "vistrel lines harbour.playfile set 1 2 \"Text=Gate 2\" Blinking=yes");
    takeLines(set);
    AddPropertyOptions(*set, options->properties, kLinePropertyValue, kLinePropertiesHelp)->required();
    CLI::App* insert = add("insert", &insertLine, "Inserts a line",
                           "vistrel lines harbour.playfile insert 1 3 Text=Welcome");
    insert
        ->add_option("AT", options->at,
                     "Number, from 1, that the new line gets; one more than the last for the end")
        ->required();
    AddPropertyOptions(*insert, options->properties, kLinePropertyValue, kLinePropertiesHelp);
    takeLines(add("delete", &deleteLines, "Deletes lines; the only line of a frame is emptied instead",
                  "vistrel lines harbour.playfile delete 1 2-"));
    CLI::App* move = add("move", &moveLine, "Moves a line to the place of another",
                         "vistrel lines harbour.playfile move all 2 1");
    move->add_option("FROM", options->from, "Number of the line, from 1")->required();
    move->add_option("TO", options->to, "Number that it gets")->required();
}

} // namespace qrtVistrelClasses4
