// A playfile as a value: frames, and where they came from.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameRecord.h>

#include <cstdint>
#include <string>
#include <vector>

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

/// Number of lines of a frame that scroll.
QRT_PUBLIC std::int32_t CountScrollingLines(const FrameRecord& frame);

/// Number of frames of the sign that a frame takes when it is sent. One that is not blank takes
/// `TotalDisplayFramesUsedForThisFrame`, and at least 1. Picture and text of one frame are sent one after the
/// other, which takes one more; but a frame with the appear effect 9999 takes the largest of that number,
/// `AVIFrames` and 1.
QRT_PUBLIC std::int32_t CountDisplayFrames(const FrameRecord& frame);
/// Of all frames of a playfile.
QRT_PUBLIC std::int64_t CountDisplayFrames(const Playfile& playfile);

/// The custom fonts of the lines that are shown, each once, as the first line has it. The case of names does
/// not matter.
QRT_PUBLIC std::vector<std::string> CustomFontsOf(const Playfile& playfile);
/// Bytes of the files of these fonts, each once. A file that is not found adds nothing.
QRT_PUBLIC std::uint64_t SizeOfCustomFonts(const Playfile& playfile);

/// The total delay of all frames but blank ones, in seconds. The sum is rounded after each frame, halves to
/// the even number, so that delays of 0.5 never add up. A sum beyond 32 bits is error 6.
QRT_PUBLIC std::int32_t TotalDelaySeconds(const Playfile& playfile);

/// Whether a frame before frame `number` shows the same picture in the same way, or sends the same command
/// file, so that the sign needs no second copy of the file. Names are compared exactly. False for a number
/// outside the frames.
QRT_PUBLIC bool HasPreviousClone(const Playfile& playfile, std::int32_t number);

} // namespace qrtVistrelClasses4
