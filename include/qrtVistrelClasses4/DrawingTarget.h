// Surfaces that letters are drawn on.
#pragma once

#include <qrtVistrelClasses4/Color.h>
#include <qrtVistrelClasses4/Export.h>

#include <cstdint>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

class PixelBuffer;

/// Something whose pixels can be set.
class DeviceContext {
public:
    virtual ~DeviceContext() = default;
    /// Columns are numbered from 0 at the left, rows from 0 at the top. A pixel outside the surface is
    /// ignored.
    virtual void SetPixel(std::int32_t x, std::int32_t y, Color color) = 0;
};

/// A surface of the host. If the host refuses a call, the call throws a `RuntimeError`.
class DrawingTarget {
public:
    virtual ~DrawingTarget() = default;
    /// Name of the target's class, for the call trace.
    virtual std::string ClassName() const = 0;
    /// The context of the target's bitmap. The caller may use it until it calls `ReleaseBitmapDC`.
    virtual DeviceContext& GetBitmapDC() = 0;
    /// Gives the bitmap's context back. A refusal of the host is ignored, since this is called after errors
    /// too.
    virtual void ReleaseBitmapDC() noexcept = 0;
    /// The target's own context.
    virtual DeviceContext& hdc() = 0;
    virtual Color BackColor() = 0;
    /// The target's pixels, if they are in memory: letters are then drawn on them directly. If this returns
    /// null, letters are drawn by `SetPixel`, and `BackColor` is called before each pixel that gets that
    /// colour.
    virtual PixelBuffer* Pixels() { return nullptr; }
};

} // namespace qrtVistrelClasses4
