// A drawing surface of the host, used by the names of its members.
#pragma once

#include "automation/HostObject.h"
#include <qrtVistrelClasses4/DrawingTarget.h>

namespace qrtVistrelClasses4 {

/// Draws on the device contexts that the host's object returns from "GetBitmapDC" (until "ReleaseBitmapDC")
/// and "hdc". The object's "BackColor" is a colour, or the number of a system colour with the highest bit
/// set. Throws the object's errors as `RuntimeError`, except those of "ReleaseBitmapDC".
class HostDrawingTarget final : public DrawingTarget, private DeviceContext {
public:
    explicit HostDrawingTarget(IDispatch* target) : target_(target) {}

    std::string ClassName() const override { return target_.className(); }
    DeviceContext& GetBitmapDC() override;
    void ReleaseBitmapDC() noexcept override;
    DeviceContext& hdc() override;
    Color BackColor() override;

private:
    void SetPixel(std::int32_t x, std::int32_t y, Color color) override;
    DeviceContext& contextFrom(const wchar_t* member);

    HostObject target_;
    HDC context_ = nullptr;
};

} // namespace qrtVistrelClasses4
