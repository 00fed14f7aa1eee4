#include "fuzz/history/Edits.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kMostFrames = 40;
constexpr std::array kDelays{0.0, -0.0, 1.5};

FrameRecord randomFrame(Dice& dice) {
    FrameRecord frame;
    frame.FrameName = std::string(1, static_cast<char>('A' + dice.below(3)));
    frame.DelayTime = dice.oneOf(kDelays);
    frame.spareLongs[0] = static_cast<std::int32_t>(dice.below(2));
    frame.lines.resize(static_cast<std::int32_t>(dice.below(3)));
    for (LineRecord& line : frame.lines)
        line.CurrentLineText.assign(dice.below(40), 'x');
    return frame;
}

void changeFrame(FrameRecord& frame, Dice& dice) {
    const unsigned kind = dice.below(5);
    if (kind == 0)
        frame = randomFrame(dice);
    else if (kind == 1)
        frame.lines.resize(static_cast<std::int32_t>(dice.below(4)));
    else if (kind == 2)
        frame.DelayTime = dice.oneOf(kDelays);
    else if (kind == 3)
        frame.spareTexts[3].assign(dice.below(100), 'y');
    else if (!frame.lines.empty())
        frame.lines.at(1).CurrentLineText += 'z';
}

/// A part of a list, any that it has.
struct Part {
    std::size_t first, end;
};
Part randomPart(const std::vector<FrameRecord>& frames, Dice& dice) {
    const auto [first, last] = std::minmax({dice.below(frames.size() + 1), dice.below(frames.size() + 1)});
    return {first, dice.once(2) ? std::min<std::size_t>(first + 1, frames.size()) : last};
}

void editRecords(std::vector<FrameRecord>& frames, Dice& dice) {
    const Part part = randomPart(frames, dice);
    const auto first = frames.begin() + static_cast<std::ptrdiff_t>(part.first);
    const auto end = frames.begin() + static_cast<std::ptrdiff_t>(part.end);
    const unsigned kind = dice.below(8);
    if (kind == 0) {
        std::for_each(first, end, [&](FrameRecord& frame) { changeFrame(frame, dice); });
    } else if (kind == 1) {
        frames.erase(first, end);
    } else if (kind == 2 && frames.size() < kMostFrames) {
        const std::vector<FrameRecord> copies(first, end);
        frames.insert(frames.begin() + dice.below(frames.size() + 1), copies.begin(), copies.end());
    } else if (kind == 3 && frames.size() < kMostFrames) {
        frames.insert(first, randomFrame(dice));
    } else if (kind == 4) {
        std::rotate(first, end, frames.end());
    } else if (kind == 5) {
        std::rotate(frames.begin(), first, end);
    } else if (kind == 6) {
        std::reverse(first, end);
    } else if (first != end) {
        changeFrame(*first, dice);
    }
}

} // namespace

Frames RandomFrames(Dice& dice) {
    Frames frames(static_cast<std::int32_t>(dice.below(kMostFrames)));
    for (FrameRecord& frame : frames)
        frame = randomFrame(dice);
    return frames;
}

void EditAtRandom(Frames& frames, Dice& dice) {
    std::vector<FrameRecord> records(frames.begin(), frames.end());
    for (unsigned count = dice.once(4) ? 3 : 1; count > 0; --count)
        editRecords(records, dice);
    frames.resize(static_cast<std::int32_t>(records.size()));
    std::ranges::move(records, frames.begin());
}

void TypeAtRandom(Frames& frames, Dice& dice) {
    const std::int32_t most = std::min(frames.upperBound(), 2);
    for (std::int32_t number = 1; number <= most; ++number)
        if (dice.once(2))
            frames.at(number).FrameName.assign(1 + dice.below(3), 'T');
}

} // namespace qrtVistrelClasses4
