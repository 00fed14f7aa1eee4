#include <qrtVistrelClasses4/FrameRecord.h>

#include "frame/Conversions.h"
#include "playfile/Effects.h"

#include <cmath>

namespace qrtVistrelClasses4 {

void EmptyFrame(FrameRecord& frame) {
    frame.commandfile.clear();
    frame.PicturefileName.clear();
    frame.AudioFile.clear();
    frame.FrameType = 0;
    frame.DelayTime = 0;
    frame.FrameName.clear();
    frame.PrefixCode = 0;
    frame.SuffixCode = 0;
    frame.lines = OneBasedArray<LineRecord>(1);
}

NEW_FRAME_TYPES KindOf(const FrameRecord& frame) { return MeaningOf(FrameTypeAccessor::get(frame)); }

bool IsUsed(const FrameRecord& frame) { return KindOf(frame) != NEW_FRAME_TYPES::FRAME_BLANK; }

bool HasPicture(const FrameRecord& frame) {
    const NEW_FRAME_TYPES kind = KindOf(frame);
    return kind == NEW_FRAME_TYPES::FRAME_GRAPHIC || kind == NEW_FRAME_TYPES::FRAME_GRAPHICTEXT;
}

bool HasText(const FrameRecord& frame) {
    const NEW_FRAME_TYPES kind = KindOf(frame);
    return kind == NEW_FRAME_TYPES::FRAME_TEXT || kind == NEW_FRAME_TYPES::FRAME_GRAPHICTEXT;
}

bool IsFastScroll(const FrameRecord& frame) { return kMember<&FrameRecord::FastScroll>.get(frame); }

bool IsOverlay(const FrameRecord& frame) { return frame.OverlayFrame != 0; }
bool IsDrawnOver(const FrameRecord& frame) { return IsOverlay(frame) || frame.PrefixCode == kOverlayText; }

FRAME_TYPES FrameTypeAccessor::get(const FrameRecord& frame) {
    return static_cast<FRAME_TYPES>(frame.FrameType);
}
void FrameTypeAccessor::set(FrameRecord& frame, FRAME_TYPES type) {
    frame.FrameType = NarrowToInt16(static_cast<std::int32_t>(type));
}

template <std::int16_t FrameRecord::*code, std::int16_t FrameRecord::*other>
void CoupledCodeAccessor<code, other>::set(FrameRecord& frame, std::int16_t value) {
    frame.*code = value;
    if (value == kPhotoRealistic)
        frame.*other = kPhotoRealistic;
    else if (frame.*other == kPhotoRealistic)
        frame.*other = 0;
}
template struct CoupledCodeAccessor<&FrameRecord::PrefixCode, &FrameRecord::SuffixCode>;
template struct CoupledCodeAccessor<&FrameRecord::SuffixCode, &FrameRecord::PrefixCode>;

void DelayAccessor::set(FrameRecord& frame, double seconds) {
    check(seconds);
    frame.DelayTime = seconds;
}

void DelayAccessor::check(double seconds) {
    if (!std::isfinite(seconds))
        throw RuntimeError(ErrorNumber::overflow);
}

std::int16_t LineLimitAccessor::get(const FrameRecord& frame) {
    return NarrowToInt16(frame.FixedNumberOfLines);
}

} // namespace qrtVistrelClasses4
