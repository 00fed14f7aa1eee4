// Playfiles such as users make, in any size.
#pragma once

#include "playfile/FrameRecord.h"

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4::bench {

struct PlayfileSize {
    std::int16_t frames;
    std::int16_t lines; ///< Of every frame.

    /// "1048x8".
    std::string name() const { return std::to_string(frames) + "x" + std::to_string(lines); }
};

using Frames = OneBasedArray<FrameRecord>;

/// Frames with names, effects, whole and broken delays, texts of 5 to 40 characters of which some hold
/// quotes, and a picture (`picture`) on few. The same at every call.
Frames MakeFrames(PlayfileSize size, const std::string& picture);

} // namespace qrtVistrelClasses4::bench
