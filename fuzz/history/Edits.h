// Random edits of playfiles.
#pragma once

#include "bench/Dice.h"
#include <qrtVistrelClasses4/FrameRecord.h>

namespace qrtVistrelClasses4 {

using bench::Dice;
using Frames = OneBasedArray<FrameRecord>;

/// Frames of which some are the same.
Frames RandomFrames(Dice& dice);

/// Changes, inserts, deletes or moves frames, or nothing.
void EditAtRandom(Frames& frames, Dice& dice);

/// Changes one line or one value of a frame, as somebody does who types or drags; nothing without frames.
void TypeAtRandom(Frames& frames, Dice& dice);

} // namespace qrtVistrelClasses4
