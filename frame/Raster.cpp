#include <qrtVistrelClasses4/Raster.h>

#include <algorithm>

namespace qrtVistrelClasses4 {

Raster::Raster(std::int32_t width, std::int32_t height, Color color)
    : width_(std::max(width, 0)), height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), color) {}

void Raster::fill(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, Color color) {
    const Area area = inside(x, y, width, height);
    if (area.isEmpty())
        return;
    Color* row = pixel(area.left, area.top);
    for (std::int32_t line = area.top; line < area.bottom; ++line, row += width_)
        std::fill_n(row, area.right - area.left, color);
}

void Raster::repeatRow(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
    const Area area = inside(x, y, width, height);
    if (area.isEmpty())
        return;
    const Color* const first = pixel(area.left, area.top);
    for (std::int32_t line = area.top + 1; line < area.bottom; ++line)
        std::copy_n(first, area.right - area.left, pixel(area.left, line));
}

Raster::Area Raster::inside(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) const {
    const auto end = [](std::int32_t start, std::int32_t size, std::int32_t limit) {
        return static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{start} + size, limit));
    };
    return {std::max(x, 0), std::max(y, 0), end(x, width, width_), end(y, height, height_)};
}

} // namespace qrtVistrelClasses4
