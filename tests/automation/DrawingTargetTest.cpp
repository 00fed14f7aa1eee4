// Pixels on device contexts of a host. That letters come to the same pixels on every target is tested in
// fonts/.
#include "AutomationTesting.h"
#include "automation/HostDrawingTarget.h"

#include <array>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kAmber = Rgb(255, 191, 0);

/// A black bitmap of 2 x 2 pixels in a device context of its own. Both are kept until the program ends.
struct MemoryBitmap {
    MemoryBitmap() {
        const BITMAPINFO info{{sizeof(BITMAPINFOHEADER), 2, -2, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        void* bits = nullptr;
        SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    }
    std::array<Color, 4> pixels() const {
        return {GetPixel(dc, 0, 0), GetPixel(dc, 1, 0), GetPixel(dc, 0, 1), GetPixel(dc, 1, 1)};
    }

    const HDC dc = CreateCompatibleDC(nullptr);
};

class FakePictureBox : public FakeHostObject {
public:
    MemoryBitmap window, bitmap;
    int bitmapUsers = 0;
    std::int32_t backColor = static_cast<std::int32_t>(kAmber);
    HRESULT refusal = S_OK; ///< The answer to ReleaseBitmapDC.

    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        bitmapUsers += member_ == "GetBitmapDC" ? 1 : member_ == "ReleaseBitmapDC" ? -1 : 0;
        if (!result)
            return member_ == "ReleaseBitmapDC" ? refusal : DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4; // handles have 32 bits that matter
        V_I4(result) =
            member_ == "BackColor" ? backColor : HandleToLong(member_ == "hdc" ? window.dc : bitmap.dc);
        return S_OK;
    }
};

using DrawingTargetOfHost = AutomationTest;

TEST_F(DrawingTargetOfHost, DrawsOnItsWindowAndItsBitmapInTheColoursOfTheSystemToo) {
    const ComPtr<FakePictureBox> pictureBox = MakeObject<FakePictureBox>();
    HostDrawingTarget target(pictureBox.Get());
    target.GetBitmapDC().SetPixel(1, 0, kAmber);
    EXPECT_EQ(pictureBox->bitmapUsers, 1);
    target.ReleaseBitmapDC();
    EXPECT_EQ(pictureBox->bitmapUsers, 0);
    target.hdc().SetPixel(0, 1, kAmber);
    EXPECT_EQ(pictureBox->bitmap.pixels(), (std::array<Color, 4>{0, kAmber, 0, 0}));
    EXPECT_EQ(pictureBox->window.pixels(), (std::array<Color, 4>{0, 0, kAmber, 0}));
    pictureBox->refusal = E_FAIL;
    target.ReleaseBitmapDC();
    EXPECT_EQ(target.BackColor(), kAmber);
    pictureBox->backColor = static_cast<std::int32_t>(0x80000000 | COLOR_BTNFACE);
    EXPECT_EQ(target.BackColor(), GetSysColor(COLOR_BTNFACE));
}

} // namespace
} // namespace qrtVistrelClasses4
