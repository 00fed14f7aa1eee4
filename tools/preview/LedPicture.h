// The dots of a sign as its LEDs look.
#pragma once

#include "fonts/PixelBuffer.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace qrtVistrelClasses4 {

/// Draws lit dots, dark ones and the gaps between them.
class LedPainter {
public:
    /// `scale`: pixels from one dot to the next, from 1.
    explicit LedPainter(int scale);

    /// Pixels that so many dots take, with the rim of the sign on both sides.
    std::int64_t sizeOf(std::int32_t dots) const {
        return std::int64_t{dots} * scale_ + std::int64_t{2} * rim();
    }
    /// Draws a sign with the left upper corner of its rim at `left`, `top`; all of it lies in the picture.
    void draw(const PixelBuffer& dots, PixelBuffer& picture, std::int32_t left, std::int32_t top);

private:
    std::int32_t rim() const { return scale_ / 2 + 1; }
    /// The square of pixels that shows a dot, row by row.
    const Color* ledFor(Color dot);
    std::vector<Color> makeLed(Color dot) const;
    /// How much of a pixel the dot covers, from 0 to 1, the pixel's offsets being those in its square.
    double coverage(int x, int y) const;

    int scale_;
    std::unordered_map<Color, std::vector<Color>> leds_; ///< By the colour of the dot.
};

} // namespace qrtVistrelClasses4
