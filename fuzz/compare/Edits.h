// Random frames, and edits of them that are known.
#pragma once

#include "bench/Dice.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <string>

namespace qrtVistrelClasses4 {

using bench::Dice;

enum class EditKind { move, insert, remove, change };

/// An edit of one frame, or of one line of a frame.
struct Edit {
    EditKind kind = EditKind::move;
    std::int32_t frame = 0; ///< From 1, when it was edited.
    std::int32_t line = 0;  ///< From 1; 0 for an edit of a frame.
    int values = 0;         ///< How many were changed.
};

using Frames = OneBasedArray<FrameRecord>;

/// Up to `most` frames, with few different values, so that many are equal or almost so, and many without a
/// name.
Frames RandomFrames(Dice& dice, std::int32_t most);
FrameRecord RandomFrame(Dice& dice);

/// Makes one edit. An edit of a line needs a frame that has one; without, a frame is inserted.
Edit MakeEdit(Dice& dice, Frames& frames);

} // namespace qrtVistrelClasses4
