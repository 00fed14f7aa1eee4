// Playfiles such as users make, in any size.
#pragma once

#include "bench/BenchFolder.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <cstdint>
#include <memory>
#include <string>

namespace qrtVistrelClasses4::bench {

struct PlayfileSize {
    std::int16_t frames;
    std::int16_t lines; ///< Of every frame.

    /// "1048x8".
    std::string name() const { return std::to_string(frames) + "x" + std::to_string(lines); }
};

constexpr PlayfileSize kUsual{1048, 8}; ///< As many frames as the application allows.
constexpr PlayfileSize kLarge{30000, 4};
constexpr PlayfileSize kSmall{9, 2}; ///< Without references: what a file costs whatever is in it.

using Frames = OneBasedArray<FrameRecord>;

/// Frames with names, effects, whole and broken delays, texts of 5 to 40 characters of which some hold
/// quotes, and references (`SampleReferences`) on a third. The same at every call.
Frames MakeFrames(PlayfileSize size, const BenchFolder& folder);

/// The library's own playfile of these frames, by way of a file in the folder.
std::unique_ptr<FrameInfoClass> MakePlayfile(PlayfileSize size, const BenchFolder& folder);

} // namespace qrtVistrelClasses4::bench
