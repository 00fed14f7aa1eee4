// A picture in memory.
#pragma once

#include "fonts/DrawingTarget.h"

#include <cstddef>
#include <span>
#include <vector>

namespace qrtVistrelClasses4 {

/// Pixels are numbered from 0, from the left and from the top. Drawing outside does nothing.
class PixelBuffer final : public DrawingTarget, private DeviceContext {
public:
    /// All pixels start in the background's colour. A size below 0 counts as 0.
    PixelBuffer(std::int32_t width, std::int32_t height, Color backColor = 0);

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    /// `y` lies inside.
    std::span<Color> row(std::int32_t y);
    std::span<const Color> row(std::int32_t y) const;
    /// The colour that `BackColor` tells from now on; pixels stay as they are.
    void setBackColor(Color color) { backColor_ = color; }
    void fill(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, Color color);
    /// Copies `width` pixels of row `y`, which lies inside, to the rows below it, so that `height` rows are
    /// equal.
    void repeatRow(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height);

    std::string ClassName() const override { return "PixelBuffer"; }
    DeviceContext& GetBitmapDC() override { return *this; }
    void ReleaseBitmapDC() noexcept override {}
    DeviceContext& hdc() override { return *this; }
    Color BackColor() override { return backColor_; }
    PixelBuffer* Pixels() override { return this; }

private:
    void SetPixel(std::int32_t x, std::int32_t y, Color color) override { fill(x, y, 1, 1, color); }

    /// Columns and rows inside, up to and without the last.
    struct Area {
        std::int32_t left, top, right, bottom;
        bool isEmpty() const { return left >= right || top >= bottom; }
    };
    Area inside(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) const;
    Color* pixel(std::int32_t x, std::int32_t y) { return pixels_.data() + std::ptrdiff_t{y} * width_ + x; }

    std::int32_t width_;
    std::int32_t height_;
    Color backColor_;
    std::vector<Color> pixels_; ///< Row by row.
};

} // namespace qrtVistrelClasses4
