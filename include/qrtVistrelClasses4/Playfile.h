// A playfile as a value: frames, and where they came from.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameRecord.h>

#include <cstdint>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

struct Playfile {
    OneBasedArray<FrameRecord> frames; ///< Numbered from 1.
    std::string fileName;  ///< Path of the file it was loaded from or saved to last; empty if none.
    bool isLegacy = false; ///< True if it came from a file of the older format.

    bool operator==(const Playfile&) const = default;
};

/// Number of frames that are not blank.
QRT_PUBLIC std::int32_t CountUsedFrames(const Playfile& playfile);
/// Number of frames of a kind.
QRT_PUBLIC std::int32_t CountFrames(const Playfile& playfile, NEW_FRAME_TYPES kind);

/// The total delay of all frames but blank ones, in seconds. The sum is rounded after each frame, halves to
/// the even number, so that delays of 0.5 never add up. A sum beyond 32 bits is error 6.
QRT_PUBLIC std::int32_t TotalDelaySeconds(const Playfile& playfile);

/// Whether a frame before frame `number` shows the same picture in the same way, or sends the same command
/// file, so that the sign needs no second copy of the file. Names are compared exactly. False for a number
/// outside the frames.
QRT_PUBLIC bool HasPreviousClone(const Playfile& playfile, std::int32_t number);

} // namespace qrtVistrelClasses4
