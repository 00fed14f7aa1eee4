#include "fonts/PixelBuffer.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

PixelBuffer::PixelBuffer(std::int32_t width, std::int32_t height, Color backColor)
    : width_(std::max(width, 0)), height_(std::max(height, 0)), backColor_(backColor),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), backColor) {}

std::span<Color> PixelBuffer::row(std::int32_t y) {
    const auto width = static_cast<std::size_t>(width_);
    return std::span(pixels_).subspan(static_cast<std::size_t>(y) * width, width);
}

std::span<const Color> PixelBuffer::row(std::int32_t y) const {
    const auto width = static_cast<std::size_t>(width_);
    return std::span(pixels_).subspan(static_cast<std::size_t>(y) * width, width);
}

void PixelBuffer::fill(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, Color color) {
    const auto right = std::min(static_cast<std::int64_t>(x) + width, static_cast<std::int64_t>(width_));
    const auto bottom = std::min(static_cast<std::int64_t>(y) + height, static_cast<std::int64_t>(height_));
    const std::int64_t left = std::max(x, 0);
    if (left >= right)
        return;
    for (std::int64_t line = std::max(y, 0); line < bottom; ++line)
        std::fill_n(pixels_.begin() + line * width_ + left, right - left, color);
}

} // namespace qrtVistrelClasses4
