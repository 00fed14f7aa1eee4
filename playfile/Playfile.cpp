#include <qrtVistrelClasses4/Playfile.h>

#include "fonts/FontLoading.h"
#include "frame/Conversions.h"
#include "platform/LetterCase.h"
#include "platform/Platform.h"
#include "playfile/Effects.h"

#include <algorithm>
#include <functional>
#include <set>
#include <unordered_set>
#include <utility>

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

std::int32_t CountScrollingLines(const FrameRecord& frame) {
    return static_cast<std::int32_t>(
        std::count_if(frame.lines.begin(), frame.lines.end(), std::mem_fn(&LineRecord::Scrolling)));
}

std::int32_t CountDisplayFrames(const FrameRecord& frame) {
    if (!IsUsed(frame))
        return 0;
    const std::int32_t frames = std::max<std::int32_t>(frame.TotalDisplayFramesUsedForThisFrame, 1);
    if (frame.PrefixCode == kPhotoRealistic)
        return std::max<std::int32_t>(frames, frame.AVIFrames);
    return frames + (KindOf(frame) == NEW_FRAME_TYPES::FRAME_GRAPHICTEXT ? 1 : 0);
}

std::int64_t CountDisplayFrames(const Playfile& playfile) {
    std::int64_t count = 0;
    for (const FrameRecord& frame : playfile.frames)
        count += CountDisplayFrames(frame);
    return count;
}

std::vector<std::string> CustomFontsOf(const Playfile& playfile) {
    std::vector<std::string> fonts;
    std::unordered_set<std::string> known;
    for (const FrameRecord& frame : playfile.frames) {
        if (!HasText(frame))
            continue;
        for (const LineRecord& line : frame.lines)
            if (line.LineFontSize == kCustomFont && !line.LineCustomFont.empty() &&
                known.insert(AnsiUpperCase(line.LineCustomFont)).second)
                fonts.push_back(line.LineCustomFont);
    }
    return fonts;
}

std::uint64_t SizeOfCustomFonts(const Playfile& playfile) {
    std::set<std::string> files;
    for (const std::string& font : CustomFontsOf(playfile))
        if (auto file = FindFontFile(font))
            files.insert(*std::move(file));
    std::uint64_t size = 0;
    for (const std::string& file : files)
        size += platform().files().sizeOf(file).valueOr(0);
    return size;
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
