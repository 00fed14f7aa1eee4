#include <qrtVistrelClasses4/Playfile.h>

#include "frame/Conversions.h"
#include "playfile/Effects.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

template <class IsCounted>
std::int32_t countThose(const Playfile& playfile, IsCounted isCounted) {
    return static_cast<std::int32_t>(
        std::count_if(playfile.frames.begin(), playfile.frames.end(), isCounted));
}

bool showsSamePicture(const FrameRecord& earlier, const FrameRecord& frame) {
    return !earlier.PicturefileName.empty() && earlier.PicturefileName == frame.PicturefileName &&
           earlier.PictureFileDisplay == frame.PictureFileDisplay &&
           (frame.PrefixCode == kPhotoRealistic || earlier.PrefixCode != kPhotoRealistic);
}

bool sendsSameFile(const FrameRecord& earlier, const FrameRecord& frame) {
    return !earlier.commandfile.empty() && earlier.commandfile == frame.commandfile;
}

} // namespace

std::int32_t CountUsedFrames(const Playfile& playfile) { return countThose(playfile, IsUsed); }

std::int32_t CountFrames(const Playfile& playfile, NEW_FRAME_TYPES kind) {
    return countThose(playfile, [kind](const FrameRecord& frame) { return KindOf(frame) == kind; });
}

std::int32_t TotalDelaySeconds(const Playfile& playfile) {
    std::int32_t total = 0;
    for (const FrameRecord& frame : playfile.frames)
        if (IsUsed(frame))
            total = RoundToInt32(total + frame.DelayTime);
    return total;
}

bool HasPreviousClone(const Playfile& playfile, std::int32_t number) {
    if (!playfile.frames.contains(number))
        return false;
    const auto frame = playfile.frames.begin() + (number - 1);
    return std::any_of(playfile.frames.begin(), frame, [&](const FrameRecord& earlier) {
        return showsSamePicture(earlier, *frame) || sendsSameFile(earlier, *frame);
    });
}

} // namespace qrtVistrelClasses4
