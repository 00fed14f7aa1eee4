// The rules of a frame's stored numbers under the names that other rooms know.
#pragma once

#include "playfile/FrameRecord.h"

namespace qrtVistrelClasses4 {

inline FRAME_TYPES FrameTypeOf(const FrameRecord& frame) { return FrameTypeAccessor::get(frame); }
inline void SetFrameType(FrameRecord& frame, FRAME_TYPES type) { FrameTypeAccessor::set(frame, type); }
inline void SetOverlay(FrameRecord& frame, bool on) { OverlayAccessor::set(frame, on); }

} // namespace qrtVistrelClasses4
