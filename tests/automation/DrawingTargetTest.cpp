// Letters on device contexts of a host.
#include "AutomationTesting.h"
#include "automation/HostDrawingTarget.h"
#include "fonts/FontTesting.h"

namespace qrtVistrelClasses4 {
namespace {

std::vector<Color> pixelsOf(PixelBuffer& buffer) {
    std::vector<Color> pixels;
    for (std::int32_t y = 0; y < buffer.height(); ++y)
        pixels.insert(pixels.end(), buffer.row(y).begin(), buffer.row(y).end());
    return pixels;
}

/// A bitmap of 32-bit pixels in a device context of its own.
class MemoryBitmap {
public:
    MemoryBitmap(std::int32_t width, std::int32_t height, Color color) : width_(width), height_(height) {
        const BITMAPINFO info{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        previous_ = SelectObject(dc, bitmap_);
        for (std::int32_t i = 0; i < width * height; ++i)
            SetPixel(dc, i % width, i / width, color);
    }
    ~MemoryBitmap() {
        SelectObject(dc, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc);
    }
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;

    std::vector<Color> pixels() const {
        std::vector<Color> pixels(static_cast<std::size_t>(width_ * height_));
        for (std::int32_t i = 0; auto& pixel : pixels) {
            pixel = GetPixel(dc, i % width_, i / width_);
            ++i;
        }
        return pixels;
    }

    const HDC dc = CreateCompatibleDC(nullptr);

private:
    std::int32_t width_, height_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

class FakePictureBox : public FakeHostObject {
public:
    HDC window = nullptr;
    HDC bitmap = nullptr;
    int bitmapUsers = 0;
    std::int32_t backColor = static_cast<std::int32_t>(kBackColor);

    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        bitmapUsers += member_ == "GetBitmapDC" ? 1 : member_ == "ReleaseBitmapDC" ? -1 : 0;
        if (!result)
            return member_ == "ReleaseBitmapDC" ? S_OK : DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4; // handles have 32 bits that matter
        V_I4(result) = member_ == "BackColor" ? backColor : HandleToLong(member_ == "hdc" ? window : bitmap);
        return S_OK;
    }
};

class DrawingTargetOfHost : public AutomationTest {
protected:
    const ComPtr<FakePictureBox> box_ = MakeObject<FakePictureBox>();
};

TEST_F(DrawingTargetOfHost, ShowsWhatABufferShows) {
    TestHost host;
    classFontMaster fonts;
    Font font{16, 16, {}};
    Texts triangle;
    for (std::size_t width = 1; width <= 16; ++width)
        triangle.emplace_back(width, '#');
    for (const int ownWidth : {13, 1, 16})
        AddLetter(font, static_cast<char>('A' + font.characters.size()), triangle, ownWidth);
    Load(host, fonts, font);
    fonts.MagTimes(3);
    for (const auto background : {std::int16_t{0}, std::int16_t{-1}})
        for (const bool onBitmap : {false, true}) {
            SCOPED_TRACE(testing::Message() << background << " " << onBitmap);
            PixelBuffer buffer = UntouchedPixels(150, 50);
            const MemoryBitmap picture(150, 50, kUntouched), unused(150, 50, kUntouched);
            box_->window = onBitmap ? unused.dc : picture.dc;
            box_->bitmap = onBitmap ? picture.dc : unused.dc;
            HostDrawingTarget target(box_.Get());
            for (DrawingTarget* drawn :
                 {static_cast<DrawingTarget*>(&buffer), static_cast<DrawingTarget*>(&target)}) {
                std::int32_t advance = 0;
                fonts.DrawText("ABCA", *drawn, -20, -5, background, onBitmap, advance);
                fonts.HilightSelection("ABCA", *drawn, -20, -5, 3, 3, onBitmap);
            }
            EXPECT_TRUE(picture.pixels() == pixelsOf(buffer));
            EXPECT_EQ(box_->bitmapUsers, 0);
        }
    EXPECT_TRUE(host.reports.all.empty());
}

TEST_F(DrawingTargetOfHost, KnowsTheColoursOfTheSystem) {
    HostDrawingTarget target(box_.Get());
    EXPECT_EQ(target.BackColor(), kBackColor);
    box_->backColor = static_cast<std::int32_t>(0x80000000 | COLOR_BTNFACE);
    EXPECT_EQ(target.BackColor(), GetSysColor(COLOR_BTNFACE));
}

} // namespace
} // namespace qrtVistrelClasses4
