#include "validation/Loops.h"

#include "playfile/Effects.h"
#include "validation/Rules.h"

namespace qrtVistrelClasses4 {

LoopsOfPlayfile LoopsOf(const Playfile& playfile) {
    LoopsOfPlayfile result;
    std::vector<std::size_t> open; // the innermost one last
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        if (!IsUsedFrame(frame))
            continue;
        if (frame.PrefixCode > kLoopBase && frame.PrefixCode < kLoopLimit) {
            const auto parent = open.empty() ? std::nullopt : std::optional(open.back());
            open.push_back(result.loops.size());
            result.loops.push_back(
                {.firstFrame = number, .rounds = frame.PrefixCode - kLoopBase, .parent = parent});
        }
        if (frame.SuffixCode == kEndLoop && open.empty()) {
            result.endsWithoutStart.push_back(number);
        } else if (frame.SuffixCode == kEndLoop) {
            result.loops[open.back()].lastFrame = number;
            open.pop_back();
        }
    }
    for (Loop& loop : result.loops)
        if (loop.parent && !result.loops[*loop.parent].isClosed())
            loop.parent = result.loops[*loop.parent].parent;
    return result;
}

} // namespace qrtVistrelClasses4
