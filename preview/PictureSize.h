// How many pixels a picture has, and whether it is drawn.
#pragma once

#include <qrtVistrelClasses4/FramePicture.h>
#include <qrtVistrelClasses4/LedPainter.h>

#include <cstdint>
#include <limits>
#include <string>

namespace qrtVistrelClasses4 {

/// Pixels of a picture, of which there may be too many.
struct PictureSize {
    std::int64_t width = 0;
    std::int64_t height = 0;

    static PictureSize ofLeds(const LedPainter& leds, DotSize dots) {
        return {leds.sizeOf(dots.width), leds.sizeOf(dots.height)};
    }
    bool isDrawn(std::int64_t largestSide = std::numeric_limits<std::int32_t>::max()) const {
        return width <= largestSide && height <= largestSide && width * height <= kMostPixelsInPicture;
    }
    /// The size of a picture that is drawn.
    DotSize pixels() const { return {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)}; }
    /// What to say, after an article, of one that is not.
    std::string refusal() const {
        return "picture of " + std::to_string(width) + " x " + std::to_string(height) +
               " pixels is too large";
    }
};

} // namespace qrtVistrelClasses4
