// Letters on device contexts of a host.
#include "AutomationTesting.h"
#include "automation/ComObject.h"
#include "automation/HostDrawingTarget.h"
#include "fonts/FontTesting.h"

#include <cwchar>

namespace qrtVistrelClasses4 {
namespace {

/// A bitmap of 32-bit pixels in a device context of its own.
class MemoryBitmap {
public:
    explicit MemoryBitmap(const PixelBuffer& like) : width_(like.width()), height_(like.height()) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        previous_ = SelectObject(dc_, bitmap_);
        for (std::int32_t y = 0; y < height_; ++y)
            for (std::int32_t x = 0; x < width_; ++x)
                SetPixel(dc_, x, y, like.row(y)[static_cast<std::size_t>(x)]);
    }
    ~MemoryBitmap() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;

    HDC dc() const { return dc_; }
    std::vector<Color> pixels() const {
        GdiFlush();
        std::vector<Color> pixels(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
        const auto* bytes = static_cast<const std::uint8_t*>(bits_);
        for (Color& pixel : pixels) { // blue comes first in a bitmap
            pixel = Rgb(bytes[2], bytes[1], bytes[0]);
            bytes += 4;
        }
        return pixels;
    }

private:
    std::int32_t width_, height_;
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    void* bits_ = nullptr;
};

/// A picture box of a host.
class FakePictureBox : public ComObject<IDispatch> {
public:
    HDC window = nullptr;
    HDC bitmap = nullptr;
    int bitmapUsers = 0;
    std::int32_t backColor = static_cast<std::int32_t>(kBackColor);

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const wchar_t* members[] = {L"GetBitmapDC", L"ReleaseBitmapDC", L"hdc", L"BackColor"};
        for (*ids = 0; *ids < 4; ++*ids)
            if (std::wcscmp(*names, members[*ids]) == 0)
                return S_OK;
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        bitmapUsers += member == 0 ? 1 : member == 1 ? -1 : 0;
        if (!result)
            return member == 1 ? S_OK : DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4; // handles have 32 bits that matter
        V_I4(result) = member == 3 ? backColor : HandleToLong(member == 0 ? bitmap : window);
        return S_OK;
    }
};

class DrawingTargetOfHost : public AutomationTest {
protected:
    TestHost host_;
    classFontMaster fonts_;
    const ComPtr<FakePictureBox> box_ = MakeObject<FakePictureBox>();
};

TEST_F(DrawingTargetOfHost, ShowsWhatABufferShows) {
    Font font{16, 16, {}};
    for (const char letter : {'A', 'B', 'C'})
        AddLetter(font, letter, Texts(16, "#"), 13);
    std::uint8_t byte = 1;
    for (int i = 0; i < 3 * font.recordSize(); ++i)
        if (i % font.recordSize() != 0)
            font.store[static_cast<std::size_t>(i)] = byte = static_cast<std::uint8_t>(byte * 5 + 3);
    Load(host_, fonts_, font);
    fonts_.MagTimes(3);

    for (const auto background : {std::int16_t{0}, std::int16_t{-1}})
        for (const bool onBitmap : {false, true}) {
            SCOPED_TRACE(testing::Message() << background << " " << onBitmap);
            PixelBuffer buffer = UntouchedPixels(150, 50);
            const MemoryBitmap picture(buffer), unused(buffer);
            box_->window = onBitmap ? unused.dc() : picture.dc();
            box_->bitmap = onBitmap ? picture.dc() : unused.dc();
            HostDrawingTarget target(box_.Get());
            for (DrawingTarget* drawn :
                 {static_cast<DrawingTarget*>(&buffer), static_cast<DrawingTarget*>(&target)}) {
                std::int32_t advance = 0;
                fonts_.DrawText("ABCA", *drawn, -20, -5, background, onBitmap, advance);
                fonts_.HilightSelection("ABCA", *drawn, -20, -5, 3, 3, onBitmap);
            }
            std::vector<Color> wanted;
            for (std::int32_t y = 0; y < buffer.height(); ++y)
                wanted.insert(wanted.end(), buffer.row(y).begin(), buffer.row(y).end());
            EXPECT_TRUE(picture.pixels() == wanted);
            EXPECT_EQ(box_->bitmapUsers, 0);
        }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(DrawingTargetOfHost, KnowsTheColoursOfTheSystem) {
    HostDrawingTarget target(box_.Get());
    EXPECT_EQ(target.BackColor(), kBackColor);
    box_->backColor = static_cast<std::int32_t>(0x80000000 | COLOR_BTNFACE);
    EXPECT_EQ(target.BackColor(), GetSysColor(COLOR_BTNFACE));
}

} // namespace
} // namespace qrtVistrelClasses4
