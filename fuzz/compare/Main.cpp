// Compares random playfiles with what known edits made of them: the changes that are shown must make the
// second of the first, and a single edit must be shown as what it is. Then measures long playfiles.
// Arguments: the number of pairs, and of frames in a long playfile.
#include "fuzz/PlayfileBytes.h"
#include "fuzz/compare/DifferencesFromJson.h"
#include "fuzz/compare/Edits.h"
#include "tools/compare/Report.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace qrtVistrelClasses4 {
namespace {

std::string textOf(const Differences& differences) {
    std::ostringstream text;
    PrintDifferences(text, differences);
    return text.str();
}

[[noreturn]] void fail(const char* why, const Differences& differences) {
    throw std::logic_error(std::string(why) + ":\n" + textOf(differences));
}

/// Whether the changes, as JSON shows them, make the second playfile of the first.
void tryToApply(const Frames& before, const Frames& after, const Differences& differences) {
    KeptBytes bytes;
    JsonOutput json(bytes);
    WriteDifferences(json, differences);
    json.finish();
    const Differences shown = DifferencesFromJson(bytes.text, before);
    if (shown != differences)
        fail("JSON does not show the differences", differences);
    const std::optional<Frames> made = WithDifferences(before, shown);
    if (!made || BytesOf(*made) != BytesOf(after) || *made != after)
        fail("the changes do not make the second playfile", differences);
    if (differences.empty() != (before == after))
        fail("equal playfiles differ, or others do not", differences);
}

/// Whether a change of a list is what the edit of that list was.
template <class Change, class Record>
bool isShown(const Change& change, const Edit& edit, const OneBasedArray<Record>& before,
             const OneBasedArray<Record>& after) {
    switch (edit.kind) {
    case EditKind::move:
        return change.isMoved && change.values.empty() && before.at(change.before) == after.at(change.after);
    case EditKind::insert:
        return change.isAdded();
    case EditKind::remove:
        return change.isRemoved();
    default:
        return !change.isMoved && static_cast<int>(change.values.size()) == edit.values &&
               change.before == change.after && change.before == (edit.line > 0 ? edit.line : edit.frame);
    }
}

/// A single edit is a single change of the same kind.
void trySingle(Dice& dice) {
    const Frames before = RandomFrames(dice, 12);
    Frames after = before;
    const Edit edit = MakeEdit(dice, after);
    const Differences differences = DifferencesBetween(before, after);
    tryToApply(before, after, differences);
    if (before == after) // one of equal frames was moved over another
        return;
    if (differences.size() != 1)
        fail("one edit is not one change", differences);
    const FrameDifference& frame = differences.front();
    if (edit.line == 0) {
        if (!frame.lines.empty() || !isShown(frame, edit, before, after))
            fail("the edit of a frame is shown as something else", differences);
    } else if (frame.isMoved || !frame.values.empty() || frame.before != edit.frame ||
               frame.after != edit.frame || frame.lines.size() != 1 ||
               !isShown(frame.lines.front(), edit, before.at(edit.frame).lines, after.at(edit.frame).lines)) {
        fail("the edit of a line is shown as something else", differences);
    }
}

/// Several edits are no more than twice as many changes: a frame without a name that is moved and changed is
/// removed and added.
void trySeveral(Dice& dice) {
    const Frames before = RandomFrames(dice, 40);
    Frames after = dice.once(9) ? RandomFrames(dice, 40) : before;
    const bool isRelated = after == before;
    const std::size_t edits = 2 + dice.below(8);
    for (std::size_t edit = 0; edit < edits; ++edit)
        MakeEdit(dice, after);
    const Differences differences = DifferencesBetween(before, after);
    tryToApply(before, after, differences);
    if (isRelated && differences.size() > 2 * edits)
        fail("too many changes", differences);
}

/// Frames whose texts are the numbers.
template <class NumberOf>
Frames numbered(std::int32_t count, NumberOf numberOf) {
    Frames frames(count);
    for (std::int32_t number = 1; number <= count; ++number) {
        frames.at(number).lines.resize(1);
        frames.at(number).lines.at(1).CurrentLineText = std::to_string(numberOf(number));
    }
    return frames;
}

void measure(const char* what, const Frames& before, const Frames& after) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const Differences differences = DifferencesBetween(before, after);
    const std::chrono::duration<double, std::milli> time = Clock::now() - start;
    const std::optional<Frames> made = WithDifferences(before, differences);
    if (!made || *made != after)
        throw std::logic_error(std::string("the changes do not make the second playfile: ") + what);
    std::cout << before.upperBound() << " frames, " << what << ": " << differences.size() << " changes, "
              << time.count() << " ms\n";
}

void measureLong(Dice& dice, std::int32_t count) {
    const auto itself = [](std::int32_t number) { return number; };
    const auto oneOf = [&](unsigned kinds) {
        return [&dice, kinds](std::int32_t) { return dice.below(kinds); };
    };
    const Frames different = numbered(count, itself);
    Frames edited = different;
    edited.move(1, count);
    edited.erase(count / 2);
    measure("different, two edits", different, edited);
    Frames fewer = numbered(count, [](std::int32_t) { return 1; });
    const Frames equal = fewer;
    fewer.erase(1, count / 2);
    measure("equal, half as many then", equal, fewer);
    measure("of two kinds, in another order", numbered(count, oneOf(2)), numbered(count, oneOf(2)));
    measure("of a hundred kinds, in another order", numbered(count, oneOf(100)), numbered(count, oneOf(100)));
    measure("backwards", different, numbered(count, [=](std::int32_t number) { return count - number; }));
    measure("in another order", different,
            numbered(count, [=](std::int32_t number) { return number * 7919LL % count; }));
    measure("all changed", different, numbered(count, [=](std::int32_t number) { return count + number; }));
}

bool run(int pairs, std::int32_t count) {
    Dice dice;
    int failures = 0;
    for (int number = 0; number < pairs; ++number)
        try {
            (number % 2 == 0 ? trySingle : trySeveral)(dice);
        } catch (const std::exception& error) {
            std::cerr << "pair " << number << ": " << error.what() << '\n';
            ++failures;
        }
    std::cout << pairs << " pairs, " << failures << " failures\n";
    measureLong(dice, count);
    return failures == 0;
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int count, char** arguments) try {
    if (count != 3) {
        std::cerr << "usage: try_differences PAIRS FRAMES\n";
        return 2;
    }
    return qrtVistrelClasses4::run(std::stoi(arguments[1]), std::stoi(arguments[2])) ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
