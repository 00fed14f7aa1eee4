// A picture in memory: rows of dots or pixels.
#pragma once

#include <qrtVistrelClasses4/Color.h>
#include <qrtVistrelClasses4/Export.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// A width and a height in dots.
struct DotSize {
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const DotSize&) const = default;
};

/// A picture as a value. Columns are numbered from 0 at the left, rows from 0 at the top. Whatever lies
/// outside the picture is not drawn.
class Raster {
public:
    /// All pixels start in `color`. A width or height below 0 counts as 0.
    Raster(std::int32_t width, std::int32_t height, Color color = 0);
    Raster(const Raster&) = default;
    Raster& operator=(const Raster&) = default;
    /// `other` is left without pixels.
    Raster(Raster&& other) noexcept
        : width_(std::exchange(other.width_, 0)), height_(std::exchange(other.height_, 0)),
          pixels_(std::exchange(other.pixels_, {})) {}
    Raster& operator=(Raster&& other) noexcept {
        width_ = std::exchange(other.width_, 0);
        height_ = std::exchange(other.height_, 0);
        pixels_ = std::exchange(other.pixels_, {});
        return *this;
    }

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    DotSize size() const { return {width_, height_}; }

    /// The pixels of row `y`, which must be inside the picture. Valid as long as the picture.
    std::span<Color> row(std::int32_t y) { return {pixel(0, y), static_cast<std::size_t>(width_)}; }
    std::span<const Color> row(std::int32_t y) const {
        return {pixels_.data() + std::ptrdiff_t{y} * width_, static_cast<std::size_t>(width_)};
    }

    /// Gives all pixels of a rectangle the same colour.
    void fill(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, Color color);
    /// Copies `width` pixels of row `y`, which must be inside the picture, to the rows below it, so that
    /// `height` rows are equal.
    void repeatRow(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height);

    bool operator==(const Raster&) const = default;

private:
    /// The columns and rows of a rectangle that are inside; `right` and `bottom` are the first ones after it.
    struct Area {
        std::int32_t left, top, right, bottom;
        bool isEmpty() const { return left >= right || top >= bottom; }
    };
    Area inside(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) const;
    Color* pixel(std::int32_t x, std::int32_t y) { return pixels_.data() + std::ptrdiff_t{y} * width_ + x; }

    std::int32_t width_;
    std::int32_t height_;
    std::vector<Color> pixels_; ///< Row by row.
};

} // namespace qrtVistrelClasses4
