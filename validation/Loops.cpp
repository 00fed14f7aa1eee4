#include "validation/Loops.h"

#include "playfile/Effects.h"
#include "validation/Rules.h"

namespace qrtVistrelClasses4 {

LoopsOfPlayfile LoopsOf(const Playfile& playfile) {
    LoopsOfPlayfile result;
    std::int32_t open = -1; // the innermost one
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        if (!IsUsedFrame(frame))
            continue;
        if (frame.PrefixCode > kLoopBase && frame.PrefixCode < kLoopLimit) {
            result.loops.push_back({.first = number, .rounds = frame.PrefixCode - kLoopBase, .parent = open});
            open = static_cast<std::int32_t>(result.loops.size()) - 1;
        }
        if (frame.SuffixCode != kEndLoop)
            continue;
        if (open < 0) {
            result.endsWithoutStart.push_back(number);
        } else {
            Loop& closed = result.loops[static_cast<std::size_t>(open)];
            closed.last = number;
            closed.isClosed = true;
            open = closed.parent;
        }
    }
    return result;
}

} // namespace qrtVistrelClasses4
