// What letters are drawn on.
#pragma once

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

/// 0x00BBGGRR.
using Color = std::uint32_t;

constexpr Color Rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return red | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}

constexpr std::uint8_t RedOf(Color color) { return static_cast<std::uint8_t>(color); }
constexpr std::uint8_t GreenOf(Color color) { return static_cast<std::uint8_t>(color >> 8); }
constexpr std::uint8_t BlueOf(Color color) { return static_cast<std::uint8_t>(color >> 16); }

class PixelBuffer;

class DeviceContext {
public:
    virtual ~DeviceContext() = default;
    /// Pixels are numbered from 0, from the left and from the top. Those outside the surface are ignored.
    virtual void SetPixel(std::int32_t x, std::int32_t y, Color color) = 0;
};

/// A surface of the host. What the host refuses arrives as a `RuntimeError`.
class DrawingTarget {
public:
    virtual ~DrawingTarget() = default;
    /// Name of the target's class, for the call trace.
    virtual std::string ClassName() const = 0;
    /// The context of the target's bitmap, the caller's until `ReleaseBitmapDC`.
    virtual DeviceContext& GetBitmapDC() = 0;
    /// What the host refuses of this is dropped: it follows errors as well.
    virtual void ReleaseBitmapDC() noexcept = 0;
    /// The target's own context.
    virtual DeviceContext& hdc() = 0;
    virtual Color BackColor() = 0;
    /// The pixels themselves, where the library has them: letters are drawn on these at once. None: they are
    /// drawn by `SetPixel`, with `BackColor` asked before every pixel that takes it.
    virtual PixelBuffer* Pixels() { return nullptr; }
};

} // namespace qrtVistrelClasses4
