// What the properties of a frame make of its stored numbers.
#pragma once

#include "frame/Conversions.h"
#include "playfile/Effects.h"
#include "playfile/FrameRecord.h"
#include "playfile/FrameTypes.h"

namespace qrtVistrelClasses4 {

inline FRAME_TYPES FrameTypeOf(const FrameRecord& frame) { return static_cast<FRAME_TYPES>(frame.FrameType); }
/// Beyond 16 bits: error 6.
inline void SetFrameType(FrameRecord& frame, FRAME_TYPES type) {
    frame.FrameType = NarrowToInt16(static_cast<std::int32_t>(type));
}

/// Sets one effect code of a frame. `kPhotoRealistic` is held by both codes or by none.
inline void SetCoupledCode(std::int16_t& code, std::int16_t& other, std::int16_t value) {
    code = value;
    if (value == kPhotoRealistic)
        other = kPhotoRealistic;
    else if (other == kPhotoRealistic)
        other = 0;
}
inline void SetPrefixCode(FrameRecord& frame, std::int16_t code) {
    SetCoupledCode(frame.PrefixCode, frame.SuffixCode, code);
}
inline void SetSuffixCode(FrameRecord& frame, std::int16_t code) {
    SetCoupledCode(frame.SuffixCode, frame.PrefixCode, code);
}

// Flags are stored as 1 and 0, but files hold other numbers too. Each flag reads those in its own way.

inline void SetSendCommandFileAsIs(FrameRecord& frame, bool on) { frame.SendCommandFileAsIs = on ? 1 : 0; }
inline bool IsOverlay(const FrameRecord& frame) { return frame.OverlayFrame != 0; }
inline void SetOverlay(FrameRecord& frame, bool on) { frame.OverlayFrame = on ? 1 : 0; }
inline bool ScrollsFast(const FrameRecord& frame) { return frame.FastScroll == 1; }
inline void SetScrollsFast(FrameRecord& frame, bool on) { frame.FastScroll = on ? 1 : 0; }

} // namespace qrtVistrelClasses4
