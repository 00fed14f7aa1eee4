#include "automation/HostDrawingTarget.h"

#include "automation/ErrorResults.h"

namespace qrtVistrelClasses4 {
namespace {

/// A colour with this bit is the number of a system colour.
constexpr std::uint32_t kSystemColor = 0x80000000;

} // namespace

DeviceContext& HostDrawingTarget::GetBitmapDC() { return contextFrom(L"GetBitmapDC"); }

void HostDrawingTarget::ReleaseBitmapDC() noexcept {
    context_ = nullptr;
    // Ignored: this also cleans up after an error, which has been reported already.
    ResultOf(IID_NULL, [&] { target_.call(L"ReleaseBitmapDC"); });
}

DeviceContext& HostDrawingTarget::hdc() { return contextFrom(L"hdc"); }

Color HostDrawingTarget::BackColor() {
    const auto color = static_cast<std::uint32_t>(target_.readNumber(L"BackColor"));
    return color & kSystemColor ? GetSysColor(static_cast<int>(color & ~kSystemColor)) : color;
}

void HostDrawingTarget::SetPixel(std::int32_t x, std::int32_t y, Color color) {
    ::SetPixel(context_, x, y, color);
}

DeviceContext& HostDrawingTarget::contextFrom(const wchar_t* member) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): automation passes handles as numbers
    context_ = reinterpret_cast<HDC>(static_cast<std::intptr_t>(target_.readNumber(member)));
    return *this;
}

} // namespace qrtVistrelClasses4
