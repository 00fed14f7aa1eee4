#include "fonts/DotPainter.h"

#include "fonts/Letter.h"
#include "frame/Conversions.h"
#include <qrtVistrelClasses4/PixelBuffer.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint8_t kLeftmostDot = 0x80;
constexpr unsigned kAllDots = 0xff;
constexpr std::int64_t kLastPixel = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kNoEnd = std::numeric_limits<std::int64_t>::max();

/// Draws pixel by pixel on a surface of the host.
class ContextPainter final : public DotPainter {
public:
    ContextPainter(DrawingTarget& target, bool useBitmapDC, Corner corner, const DotStyle& style)
        : DotPainter(corner, style, kNoEnd), target_(target), useBitmapDC_(useBitmapDC),
          context_(useBitmapDC ? target.GetBitmapDC() : target.hdc()) {}
    ~ContextPainter() override {
        if (useBitmapDC_)
            target_.ReleaseBitmapDC();
    }
    ContextPainter(const ContextPainter&) = delete;
    ContextPainter& operator=(const ContextPainter&) = delete;

private:
    void drawDots(std::uint8_t dots, int count, std::int32_t x, std::int32_t y) override {
        for (int dot = 0; dot < count; ++dot) {
            const Ink ink = dots & kLeftmostDot >> dot ? style().lit : style().dark;
            if (ink != Ink::none)
                drawBlock(x + dot * style().size, y, ink);
        }
    }

    void drawBlock(std::int32_t x, std::int32_t y, Ink ink) {
        for (std::int32_t line = y; line < y + style().size; ++line)
            for (std::int32_t column = x; column < x + style().size; ++column)
                context_.SetPixel(column, line, ink == Ink::font ? style().fontColor : target_.BackColor());
    }

    DrawingTarget& target_;
    bool useBitmapDC_;
    DeviceContext& context_;
};

/// Draws runs of lit dots at once on pixels in memory. If dark dots are drawn too, it draws one row of pixels
/// and copies it for the rest of the dots' height.
class BufferPainter : public DotPainter {
public:
    BufferPainter(PixelBuffer& pixels, Corner corner, const DotStyle& style)
        : DotPainter(corner, style, pixels.width()), pixels_(pixels), lit_(colorOf(style.lit)),
          dark_(colorOf(style.dark)) {}

protected:
    PixelBuffer& pixels() { return pixels_; }
    Color lit() const { return lit_; }
    Color dark() const { return dark_; }

private:
    void drawDots(std::uint8_t dots, int count, std::int32_t x, std::int32_t y) override {
        const std::int32_t top = std::max(y, 0);
        const std::int32_t height = y + style().size - top;
        if (style().dark == Ink::none) {
            drawLitDots(dots, count, x, top, height);
        } else if (height > 0) {
            pixels_.fill(x, top, count * style().size, 1, dark_);
            drawLitDots(dots, count, x, top, 1);
            pixels_.repeatRow(x, top, count * style().size, height);
        }
    }

    void drawLitDots(std::uint8_t dots, int count, std::int32_t x, std::int32_t y, std::int32_t height) {
        for (auto rest = static_cast<std::uint8_t>(dots & ~(0xff >> count)); rest != 0;) {
            const int dark = std::countl_zero(rest);
            const int run = std::countl_one(static_cast<std::uint8_t>(rest << dark));
            x += dark * style().size;
            pixels_.fill(x, y, run * style().size, height, lit_);
            x += run * style().size;
            rest = static_cast<std::uint8_t>(rest << (dark + run));
        }
    }

    Color colorOf(Ink ink) const { return ink == Ink::font ? style().fontColor : pixels_.BackColor(); }

    PixelBuffer& pixels_;
    Color lit_;
    Color dark_;
};

/// Draws the squares of small dots one by one, in loops whose lengths the compiler knows. Dots that are cut
/// off by an edge are left to `BufferPainter`.
template <int Size>
class SquarePainter final : public BufferPainter {
public:
    using BufferPainter::BufferPainter;

    void draw(std::uint8_t dots, int count, int column, int row) override {
        constexpr std::int64_t size = Size;
        const std::int64_t x = corner().x + column * size;
        const std::int64_t y = corner().y + row * size;
        if (x >= 0 && y >= 0 && x + count * size <= pixels().width() && y + size <= pixels().height())
            drawInside(dots, count, pixels().row(static_cast<std::int32_t>(y)).data() + x);
        else
            BufferPainter::draw(dots, count, column, row);
    }

private:
    void drawInside(std::uint8_t dots, int count, Color* place) {
        const std::ptrdiff_t width = pixels().width();
        if (style().dark == Ink::none) {
            for (unsigned rest = dots & ~(kAllDots >> count); rest != 0; rest &= rest - 1)
                drawSquare(place + std::ptrdiff_t{kDotsInByte - 1 - std::countr_zero(rest)} * Size, width,
                           lit());
        } else {
            const Color colors[] = {dark(), lit()};
            for (int dot = kDotsInByte - 1; dot >= kDotsInByte - count; --dot, place += Size)
                drawSquare(place, width, colors[dots >> dot & 1]);
        }
    }

    static void drawSquare(Color* place, std::ptrdiff_t width, Color color) {
        for (int line = 0; line < Size; ++line, place += width)
            std::fill_n(place, Size, color);
    }
};

std::unique_ptr<DotPainter> painterOn(PixelBuffer& pixels, Corner corner, const DotStyle& style) {
    switch (style.size) {
    case 1:
        return std::make_unique<SquarePainter<1>>(pixels, corner, style);
    case 2:
        return std::make_unique<SquarePainter<2>>(pixels, corner, style);
    case 3:
        return std::make_unique<SquarePainter<3>>(pixels, corner, style);
    case 4:
        return std::make_unique<SquarePainter<4>>(pixels, corner, style);
    default:
        return std::make_unique<BufferPainter>(pixels, corner, style);
    }
}

} // namespace

Corner::Corner(float left, float top) : x(RoundToInt32(std::floor(left))), y(RoundToInt32(std::floor(top))) {}

std::unique_ptr<DotPainter> DotPainter::on(DrawingTarget& target, bool useBitmapDC, Corner corner,
                                           const DotStyle& style) {
    if (PixelBuffer* pixels = target.Pixels())
        return painterOn(*pixels, corner, style);
    return std::make_unique<ContextPainter>(target, useBitmapDC, corner, style);
}

bool DotPainter::isPastSurface(int columns, int rows) const {
    const std::int64_t size = style_.size;
    return corner_.x >= end_ && corner_.x + columns * size <= kLastPixel &&
           corner_.y + rows * size <= kLastPixel;
}

void DotPainter::draw(std::uint8_t dots, int count, int column, int row) {
    const std::int64_t size = style_.size;
    if (size < 1)
        return;
    const std::int64_t x = corner_.x + column * size;
    const std::int64_t y = corner_.y + row * size;
    if (x + count * size > kLastPixel || y + size > kLastPixel)
        Raise(ErrorNumber::overflow);
    drawDots(dots, count, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
}

} // namespace qrtVistrelClasses4
