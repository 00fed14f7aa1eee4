#include "tools/compare/Report.h"

#include "tools/compare/Words.h"
#include "tools/preview/TerminalColors.h"
#include "tools/program/Commands.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Screen.h"

#include <algorithm>
#include <ostream>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kColorOfRemoved = Rgb(220, 0, 0);
constexpr Color kColorOfAdded = Rgb(0, 160, 0);
constexpr Color kColorOfMoved = Rgb(0, 150, 190);
constexpr Color kColorOfChanged = Rgb(205, 160, 0);

std::string indentation(int depth) {
    constexpr int width = 4;
    std::string spaces(static_cast<std::size_t>(depth * width), ' ');
    return spaces;
}

/// The text in a colour, if the stream has colours.
std::string inColor(std::ostream& out, Color color, const std::string& text) {
    const std::string sequence = ColorSequence(Ground::letter, color, ScreenOf(out).colors);
    return sequence.empty() ? text : sequence + text + kUsualColors;
}

constexpr char kBackslash = '\\';

/// Two texts that differ are shown differently. Characters that cannot be seen are shown by their numbers,
/// and a text that looks like that gets two backslashes for one.
std::string unmistakable(const std::string& ansi) {
    std::string visible = VisibleAnsi(ansi);
    if (ansi.find("\\x") == ansi.npos && visible == Utf8FromAnsi(ansi))
        return visible;
    std::string text;
    for (const char character : ansi)
        text += character == kBackslash ? std::string(2, kBackslash) : VisibleAnsi(std::string(1, character));
    return text;
}

std::string quoted(const std::string& ansi) { return '"' + unmistakable(ansi) + '"'; }

/// What frames and lines are called.
template <class Record>
constexpr std::string_view kNoun = "Line";
template <>
constexpr std::string_view kNoun<FrameRecord> = "Frame";

/// The value that a heading shows.
template <class Record>
constexpr auto kTitle = &LineRecord::CurrentLineText;
template <>
constexpr auto kTitle<FrameRecord> = &FrameRecord::FrameName;

template <class Record>
std::string titleOf(const Record& record) {
    const std::string& title = record.*kTitle<Record>;
    return title.empty() ? "" : ' ' + quoted(title);
}

/// A value in the form that JSON has it in, and what it means.
template <class Record>
std::string textOf(std::string_view name, const StoredValue& value) {
    if (const auto* const text = std::get_if<std::string>(&value))
        return quoted(*text);
    bool isFlag = false;
    VisitRowNamed<Record>(name, [&]<class Row>(const Row&) { isFlag = IsFlagInNumber<Row>(); });
    const auto* const number = std::get_if<std::int16_t>(&value);
    if (isFlag && number && (*number == 0 || *number == 1))
        return *number == 1 ? "true" : "false";
    return std::visit([&](const auto& it) { return CellText(name, JsonOf(it)); }, value);
}

std::string placeIn(std::string_view name, std::size_t index, bool isArray) {
    return std::string(name) + (isArray ? '[' + std::to_string(index) + ']' : "");
}

/// The values that are not the usual ones, but not the title, which is in the heading.
template <class Record>
void printValues(std::ostream& out, const Record& record, int depth) {
    const Record usual;
    ForEachStoredValue(
        [&]<class Row>(const Row& row, std::size_t index, const auto& value, const auto& usualValue) {
            const std::string name = NameOfStored(row);
            if (value != usualValue && name != kMember<kTitle<Record>>.name)
                out << indentation(depth) << placeIn(name, index, kIsArrayOfValues<ValueOfRow<Row>>) << ": "
                    << textOf<Record>(name, value) << '\n';
        },
        record, usual);
    if constexpr (requires { record.lines; })
        for (const LineRecord& line : record.lines) {
            out << indentation(depth) << kNoun<LineRecord> << titleOf(line) << '\n';
            printValues(out, line, depth + 1);
        }
}

/// "Next ferry: [-pier-]{+gate+} 2", or both texts if they have no word in common.
std::string changedText(std::ostream& out, const std::string& before, const std::string& after) {
    const std::vector<TextPart> parts = WordChanges(before, after);
    if (parts.empty())
        return quoted(before) + " -> " + quoted(after);
    std::string text;
    for (const TextPart& part : parts)
        if (part.before == part.after) {
            text += unmistakable(part.before);
        } else {
            if (!part.before.empty())
                text += inColor(out, kColorOfRemoved, "[-" + unmistakable(part.before) + "-]");
            if (!part.after.empty())
                text += inColor(out, kColorOfAdded, "{+" + unmistakable(part.after) + "+}");
        }
    return '"' + text + '"';
}

template <class Record>
void printChange(std::ostream& out, const ValueDifference& change, int depth) {
    out << indentation(depth) << placeIn(change.name, change.index, change.name.starts_with(kSpare)) << ": ";
    if (const auto* const before = std::get_if<std::string>(&change.before))
        out << changedText(out, *before, std::get<std::string>(change.after));
    else
        out << textOf<Record>(change.name, change.before) << " -> "
            << textOf<Record>(change.name, change.after);
    out << '\n';
}

template <class Record>
void printHeading(std::ostream& out, const RecordDifference<Record>& change, bool isChanged, int depth) {
    const std::int32_t number = change.isAdded() ? change.after : change.before;
    const bool isShifted = !change.isAdded() && !change.isRemoved() && !change.isMoved;
    out << indentation(depth) << kNoun<Record> << ' ' << number;
    if (isShifted && change.after != change.before)
        out << " (now " << change.after << ')';
    const bool isRenamed = std::ranges::any_of(change.values, [](const ValueDifference& value) {
        return value.name == kMember<kTitle<Record>>.name;
    });
    out << (isRenamed ? "" : titleOf(change.record)) << ' ';
    if (change.isAdded())
        out << inColor(out, kColorOfAdded, "added");
    else if (change.isRemoved())
        out << inColor(out, kColorOfRemoved, "removed");
    else if (change.isMoved)
        out << inColor(out, kColorOfMoved, "moved to " + std::to_string(change.after))
            << (isChanged ? " and " + inColor(out, kColorOfChanged, "changed") : "");
    else
        out << inColor(out, kColorOfChanged, "changed");
    out << '\n';
}

template <class Record>
void printRecordChange(std::ostream& out, const RecordDifference<Record>& change, bool isChanged, int depth) {
    printHeading(out, change, isChanged, depth);
    if (change.isAdded() || change.isRemoved())
        printValues(out, change.record, depth + 1);
    for (const ValueDifference& value : change.values)
        printChange<Record>(out, value, depth + 1);
}

void addCount(std::string& text, std::ptrdiff_t count, const char* what) {
    if (count > 0)
        text += (text.empty() ? Counted(count, "frame") : ", " + std::to_string(count)) + ' ' + what;
}

} // namespace

void PrintDifferences(std::ostream& out, const Differences& differences) {
    for (const FrameDifference& frame : differences) {
        printRecordChange(out, frame, frame.isChanged(), 0);
        for (const LineDifference& line : frame.lines)
            printRecordChange(out, line, !line.values.empty(), 1);
    }
    const auto counted = [&](auto isCounted) { return std::ranges::count_if(differences, isCounted); };
    std::string counts;
    addCount(counts, counted([](const FrameDifference& it) { return it.isMoved; }), "moved");
    addCount(counts, counted([](const FrameDifference& it) { return it.isChanged(); }), "changed");
    addCount(counts, counted([](const FrameDifference& it) { return it.isAdded(); }), "added");
    addCount(counts, counted([](const FrameDifference& it) { return it.isRemoved(); }), "removed");
    out << (counts.empty() ? "no frame differs" : counts) << '\n';
}

void PrintFrames(std::ostream& out, const OneBasedArray<FrameRecord>& frames) {
    for (const FrameRecord& frame : frames) {
        out << kNoun<FrameRecord> << titleOf(frame) << '\n';
        printValues(out, frame, 1);
    }
}

} // namespace qrtVistrelClasses4
