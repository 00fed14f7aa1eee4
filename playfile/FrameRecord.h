// What a playfile holds: frames, and the lines of text in them.
#pragma once

#include "frame/OneBasedArray.h"

#include <array>
#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

struct LineRecord {
    std::int16_t LineFontSize = 0; ///< Font number.
    std::string CurrentLineText;   ///< May hold embedded sign variables.
    bool Scrolling = false;
    bool Blinking = false;
    bool Inverse = false;
    std::string LineCustomFont; ///< File name of a custom font; empty for none.
    bool Merge = false;
    // Carried from file to file; nothing here gives them a meaning.
    std::array<std::int16_t, 2> spareShorts{};
    std::array<std::string, 3> spareTexts;
    std::array<std::int32_t, 3> spareLongs{};
    std::array<bool, 2> spareFlags{};

    bool operator==(const LineRecord&) const = default;
};

struct FrameRecord {
    std::string PicturefileName; ///< Picture or animation file.
    std::string commandfile;     ///< Raw command file of a command frame.
    OneBasedArray<LineRecord> lines;
    std::int16_t FrameType = 0; ///< By the numbers of `NEW_FRAME_TYPES`.
    std::int16_t FontWidth = 0;
    std::int16_t FontHeight = 0;
    std::int16_t PrefixCode = 0; ///< Appear effect.
    double DelayTime = 0;        ///< Seconds that the frame stays.
    std::int16_t SuffixCode = 0; ///< Disappear effect.
    std::string FrameName;
    std::int16_t PictureFileDisplay = 0; ///< How the picture is placed.
    std::int16_t PictureFileType = 0;
    std::int16_t TotalDisplayFramesUsedForThisFrame = 0; ///< Frames of the sign that it takes when sent.
    std::int16_t RowHeightForGrid = 0;
    std::int16_t SendCommandFileAsIs = 0; ///< 1 when the command file is sent unchanged.
    std::int16_t OverlayFrame = 0;        ///< 1 when drawn over the frame before.
    std::int16_t AVIFrames = 0;           ///< Pictures in the animation file.
    std::int16_t FastScroll = 0;          ///< 1 when scrolling lines scroll fast.
    std::string AudioFile;
    std::int32_t WinBackColor = 0;       ///< Background of the preview: red + 256 * green + 65536 * blue.
    std::int32_t FixedNumberOfLines = 0; ///< Other than 0: the frame keeps this many lines.
    // Carried from file to file; nothing here gives them a meaning.
    std::array<std::string, 4> spareTexts;
    std::array<std::int32_t, 3> spareLongs{};

    bool operator==(const FrameRecord&) const = default;
};

} // namespace qrtVistrelClasses4
