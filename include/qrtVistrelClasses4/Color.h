// Colours of dots and pixels.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstdint>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// 0x00BBGGRR.
using Color = std::uint32_t;

constexpr Color Rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return red | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}

constexpr std::uint8_t RedOf(Color color) { return static_cast<std::uint8_t>(color); }
constexpr std::uint8_t GreenOf(Color color) { return static_cast<std::uint8_t>(color >> 8); }
constexpr std::uint8_t BlueOf(Color color) { return static_cast<std::uint8_t>(color >> 16); }

} // namespace qrtVistrelClasses4
