// The dots of a sign as its LEDs look.
#pragma once

#include "fonts/PixelBuffer.h"

#include <cstdint>
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
    /// The square of pixels that shows a dot, row by row.
    struct Led {
        Color dot = 0;
        std::vector<Color> pixels;
    };

    std::int32_t rim() const { return scale_ / 2 + 1; }
    const Led& ledFor(Color dot);
    Led makeLed(Color dot) const;

    int scale_;
    std::vector<int> coverage_; ///< How much of each pixel of the square a dot covers.
    Led dark_;
    Led lit_; ///< The last one drawn: most neighbours are of its colour or dark.
};

} // namespace qrtVistrelClasses4
