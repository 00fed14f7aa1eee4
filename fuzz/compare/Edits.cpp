#include "fuzz/compare/Edits.h"

#include "tools/compare/StoredValues.h"

#include <array>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array<std::string_view, 8> kTexts{"",          "GATE 7", "Next ferry: pier 12", "|h:m|   ##C",
                                                 "a \"b\" c", "a  b ",  "\x80\x81\xE9\xFF",    "one\r\ntwo"};

template <class Value>
Value randomValue(Dice& dice) {
    if constexpr (std::is_same_v<Value, std::string>)
        return std::string(dice.oneOf(kTexts));
    else if constexpr (std::is_same_v<Value, bool>)
        return dice.once(2);
    else if constexpr (std::is_same_v<Value, double>)
        return dice.below(9) * 0.25;
    else
        return dice.oneOf(std::array<Value, 6>{0, 1, 2, 5, -1, std::numeric_limits<Value>::max()});
}

/// Changes some values, and returns how many. At least one is changed.
template <class Record>
int changeSome(Dice& dice, Record& record) {
    for (int changed = 0;;) {
        ForEachStoredValue(
            [&]<class Value>(const auto&, std::size_t, Value& value) {
                if (!dice.once(12))
                    return;
                Value other = randomValue<Value>(dice);
                changed += other != value ? 1 : 0;
                value = std::move(other);
            },
            record);
        if (changed > 0)
            return changed;
    }
}

LineRecord randomLine(Dice& dice) {
    LineRecord line;
    line.CurrentLineText = dice.oneOf(kTexts);
    if (dice.once(3))
        changeSome(dice, line);
    return line;
}

template <class Record>
void insert(OneBasedArray<Record>& records, std::int32_t number, Record record) {
    records.resize(records.upperBound() + 1);
    records.moveUp(number);
    records.at(number) = std::move(record);
}

std::int32_t numberUpTo(Dice& dice, std::int32_t last) {
    return 1 + static_cast<std::int32_t>(dice.below(static_cast<std::size_t>(last)));
}

/// Makes an edit of a list that is not empty, and adds to `edit` what it is. Returns the record's number.
template <class Record>
std::int32_t editList(Dice& dice, OneBasedArray<Record>& records, Edit& edit, Record newOne) {
    edit.kind = static_cast<EditKind>(dice.below(4));
    const std::int32_t last = records.upperBound();
    const std::int32_t number = numberUpTo(dice, last + (edit.kind == EditKind::insert ? 1 : 0));
    if (edit.kind == EditKind::move)
        records.move(number, numberUpTo(dice, last));
    else if (edit.kind == EditKind::insert)
        insert(records, number, std::move(newOne));
    else if (edit.kind == EditKind::remove)
        records.erase(number);
    else
        edit.values = changeSome(dice, records.at(number));
    return number;
}

} // namespace

FrameRecord RandomFrame(Dice& dice) {
    FrameRecord frame;
    frame.FrameType = static_cast<std::int16_t>(dice.below(2));
    if (dice.once(2))
        frame.FrameName = "Frame " + std::to_string(dice.below(9));
    if (dice.once(3))
        changeSome(dice, frame);
    frame.lines.resize(static_cast<std::int32_t>(dice.below(4)));
    for (LineRecord& line : frame.lines)
        line = randomLine(dice);
    return frame;
}

Frames RandomFrames(Dice& dice, std::int32_t most) {
    Frames frames(static_cast<std::int32_t>(dice.below(static_cast<std::size_t>(most) + 1)));
    for (std::int32_t number = 1; number <= frames.upperBound(); ++number)
        frames.at(number) =
            number > 1 && dice.once(3) ? frames.at(numberUpTo(dice, number - 1)) : RandomFrame(dice);
    return frames;
}

Edit MakeEdit(Dice& dice, Frames& frames) {
    Edit edit;
    if (frames.empty()) {
        edit.kind = EditKind::insert;
        edit.frame = 1;
        insert(frames, 1, RandomFrame(dice));
    } else if (const std::int32_t number = numberUpTo(dice, frames.upperBound());
               dice.once(2) && !frames.at(number).lines.empty()) {
        edit.frame = number;
        edit.line = editList(dice, frames.at(number).lines, edit, randomLine(dice));
    } else {
        edit.frame = editList(dice, frames, edit, RandomFrame(dice));
    }
    return edit;
}

} // namespace qrtVistrelClasses4
