// Drawing single dots on a target.
#pragma once

#include <qrtVistrelClasses4/DrawingTarget.h>

#include <cstdint>
#include <memory>

namespace qrtVistrelClasses4 {

/// The colour that a dot gets.
enum class Ink {
    none, ///< The dot is not drawn.
    font, ///< The colour of the font.
    back, ///< The background colour of the target.
};

struct DotStyle {
    std::int16_t size; ///< Pixels along each side.
    Color fontColor;
    Ink lit;
    Ink dark;
};

/// Upper left corner of a letter, in pixels. Far right in a text it may be beyond the largest pixel number.
struct Corner {
    /// Fractions are rounded down. Throws error 6 for numbers that need more than 32 bits.
    Corner(float left, float top);

    std::int64_t x;
    std::int64_t y;
};

/// Draws the dots of one letter after the other. Holds the target's device context as long as it lives.
class DotPainter {
public:
    static std::unique_ptr<DotPainter> on(DrawingTarget& target, bool useBitmapDC, Corner corner,
                                          const DotStyle& style);
    virtual ~DotPainter() = default;

    /// Draws the `count` dots in the highest bits of `dots`, from left to right. Rows and columns are those
    /// of the letter, from 0. Throws error 6 for pixels whose numbers need more than 32 bits.
    virtual void draw(std::uint8_t dots, int count, int column, int row);
    /// Whether the letter is right of all pixels, so that drawing any dots in `columns` and `rows` would
    /// neither be seen nor be an error. Always false for a surface of the host, which gets every pixel.
    bool isPastSurface(int columns, int rows) const;
    /// Moves to the next letter.
    void moveRight(std::int64_t pixels) { corner_.x += pixels; }

protected:
    /// `end` is the number of the first pixel right of the surface.
    DotPainter(Corner corner, const DotStyle& style, std::int64_t end)
        : style_(style), corner_(corner), end_(end) {}
    const DotStyle& style() const { return style_; }
    const Corner& corner() const { return corner_; }

private:
    virtual void drawDots(std::uint8_t dots, int count, std::int32_t x, std::int32_t y) = 0;

    DotStyle style_;
    Corner corner_;
    std::int64_t end_;
};

} // namespace qrtVistrelClasses4
