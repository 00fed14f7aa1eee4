// The frames of a playfile as the values that previews take.
#pragma once

#include "playfile/FrameInfoClass.h"
#include "playfile/FrameRecord.h"

namespace qrtVistrelClasses4 {

/// All frames of the playfile, with what previews show of them. Moves the cursors.
OneBasedArray<FrameRecord> ReadFrames(FrameInfoClass& playfile);

} // namespace qrtVistrelClasses4
