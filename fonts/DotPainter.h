// Dots on a drawing target.
#pragma once

#include "fonts/DrawingTarget.h"

#include <cstdint>
#include <memory>

namespace qrtVistrelClasses4 {

/// What a dot is drawn with.
enum class Ink {
    none, ///< It is not drawn.
    font, ///< The colour of the font.
    back, ///< The background colour of the target.
};

struct DotStyle {
    std::int16_t size; ///< Pixels along each side.
    Color fontColor;
    Ink lit;
    Ink dark;
};

/// Left upper corner of a letter, in pixels. Far to the right it may lie beyond what pixels are numbered by.
struct Corner {
    /// Fractions are cut off downwards. Error 6 for what passes 32 bits.
    Corner(float left, float top);

    std::int64_t x;
    std::int64_t y;
};

/// Draws dots of one letter after the other, and holds the target's device context as long as it lives.
class DotPainter {
public:
    static std::unique_ptr<DotPainter> on(DrawingTarget& target, bool useBitmapDC, Corner corner,
                                          const DotStyle& style);
    virtual ~DotPainter() = default;

    /// Draws the `count` dots in the highest bits of `dots`, from left to right. Rows and columns are those
    /// of the letter, from 0. Error 6 for pixels whose numbers pass 32 bits.
    void draw(std::uint8_t dots, int count, int column, int row);
    /// Whether the letter lies right of all pixels, so that drawing any `rows` of dots up to `columns` would
    /// neither be seen nor be an error. Never for a surface of the host, which is asked for every pixel.
    bool isPastSurface(int columns, int rows) const;
    /// Goes on to the next letter.
    void moveRight(std::int64_t pixels) { corner_.x += pixels; }

protected:
    /// `end`: number of the first pixel right of the surface.
    DotPainter(Corner corner, const DotStyle& style, std::int64_t end)
        : style_(style), corner_(corner), end_(end) {}
    const DotStyle& style() const { return style_; }

private:
    virtual void drawDots(std::uint8_t dots, int count, std::int32_t x, std::int32_t y) = 0;

    DotStyle style_;
    Corner corner_;
    std::int64_t end_;
};

} // namespace qrtVistrelClasses4
