// The dots of a sign drawn as LEDs.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Draws lit dots, dark dots and the gaps between them.
class LedPainter {
public:
    /// `scale` is the number of pixels from one dot to the next, at least 1.
    explicit LedPainter(int scale);

    /// Pixels that a row or column of `dots` dots takes, including the rim of the sign on both sides.
    std::int64_t sizeOf(std::int32_t dots) const {
        return std::int64_t{dots} * scale_ + std::int64_t{2} * rim();
    }
    /// Draws a sign, with the upper left corner of its rim at `left`, `top`. All its columns must be inside
    /// the picture; rows outside are not drawn. Colour 0 is a dark dot.
    void draw(const Raster& dots, Raster& picture, std::int32_t left, std::int32_t top);

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
    std::vector<int> coverage_; ///< How much of each pixel of its square a dot covers.
    Led dark_;
    Led lit_; ///< The last one drawn, since neighbours usually have the same colour.
};

} // namespace qrtVistrelClasses4
