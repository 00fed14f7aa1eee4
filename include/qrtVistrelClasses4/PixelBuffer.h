// A picture in memory that letters can be drawn on.
#pragma once

#include <qrtVistrelClasses4/DrawingTarget.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Raster.h>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The library's own drawing target. Letters are drawn on its pixels directly.
class PixelBuffer final : public Raster, public DrawingTarget, private DeviceContext {
public:
    /// All pixels start in the background colour. A width or height below 0 counts as 0.
    PixelBuffer(std::int32_t width, std::int32_t height, Color backColor = 0)
        : Raster(width, height, backColor), backColor_(backColor) {}

    /// Sets what `BackColor` returns from now on. The pixels stay as they are.
    void setBackColor(Color color) { backColor_ = color; }

    std::string ClassName() const override { return "PixelBuffer"; }
    DeviceContext& GetBitmapDC() override { return *this; }
    void ReleaseBitmapDC() noexcept override {}
    DeviceContext& hdc() override { return *this; }
    Color BackColor() override { return backColor_; }
    PixelBuffer* Pixels() override { return this; }

private:
    void SetPixel(std::int32_t x, std::int32_t y, Color color) override { fill(x, y, 1, 1, color); }

    Color backColor_;
};

} // namespace qrtVistrelClasses4
