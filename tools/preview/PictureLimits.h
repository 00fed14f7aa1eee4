// What pictures are drawn.
#pragma once

#include "preview/PictureSize.h"
#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/FramePicture.h>

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

/// False, after adding an error, if a picture would be too large for its file or for memory.
inline bool IsDrawable(const PictureSize& size, std::int64_t largestSide, ErrorLines& errors) {
    if (size.isDrawn(largestSide))
        return true;
    errors.add("a " + size.refusal() + ": at most " + std::to_string(kMostPixelsInPicture) +
               " are drawn, and " + std::to_string(largestSide) + " along a side");
    return false;
}

} // namespace qrtVistrelClasses4
