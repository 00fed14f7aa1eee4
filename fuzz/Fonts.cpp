// Any bytes as a font of both layouts, and text drawn in it: layout, width, height, place, a text, the file.
#include "Fuzz.h"
#include "fonts/FontFile.h"
#include "fonts/PixelBuffer.h"
#include "fonts/classFontMaster.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kPaper = 0x102030;
constexpr Color kInk = 0x00ff00;

/// A surface of a host, which is drawn on pixel by pixel.
class HostTarget final : public DrawingTarget, private DeviceContext {
public:
    HostTarget(std::int32_t width, std::int32_t height) : pixels(width, height, kPaper) {}
    std::string ClassName() const override { return "HostTarget"; }
    DeviceContext& GetBitmapDC() override { return *this; }
    void ReleaseBitmapDC() noexcept override {}
    DeviceContext& hdc() override { return *this; }
    Color BackColor() override { return kPaper; }

    PixelBuffer pixels;

private:
    void SetPixel(std::int32_t x, std::int32_t y, Color color) override { pixels.fill(x, y, 1, 1, color); }
};

bool areEqual(const PixelBuffer& left, const PixelBuffer& right) {
    for (std::int32_t y = 0; y < left.height(); ++y)
        if (!std::ranges::equal(left.row(y), right.row(y)))
            return false;
    return true;
}

void requireSameFont(const Font& font, std::int16_t width, std::int16_t height) {
    const bool hasHeader = width == kSizeFromFile && height == kSizeFromFile;
    const std::string bytes = hasHeader ? HeaderFontBytes(font) : SizedFontBytes(font);
    const auto again = ParseFont(bytes, width, height);
    Require(again && again->characters == font.characters && again->width == font.width &&
                again->height == font.height,
            "sizes and characters come back");
    Require((hasHeader ? HeaderFontBytes(*again) : SizedFontBytes(*again)) == bytes, "glyphs come back");
}

struct Drawing {
    std::string text;
    float x, y;
    std::int16_t background;
    std::int16_t first, last;

    std::int32_t draw(classFontMaster& font, DrawingTarget& target) const {
        std::int32_t advance = 0;
        font.DrawText(text, target, x, y, background, 0, advance);
        font.HilightSelection(text, target, x, y + 9, first, last, 0);
        for (int times = 0; times < 2; ++times)
            font.CycleIndexMarker(text, target, x, y, first, 0);
        return advance;
    }
};

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const bool hasHeader = input.byte() % 2 == 0;
    const auto number = [&] { return static_cast<std::int16_t>(static_cast<std::int8_t>(input.byte())); };
    const std::int16_t width = hasHeader ? kSizeFromFile : number();
    const std::int16_t height = hasHeader ? kSizeFromFile : number();
    const auto magnification = static_cast<std::int16_t>(number() % 4);
    const Drawing drawing{input.text().substr(0, 16),
                          static_cast<float>(number()),
                          static_cast<float>(number()),
                          number(),
                          static_cast<std::int16_t>(number() % 20),
                          static_cast<std::int16_t>(number() % 20)};
    const std::string path = host.inLibrary("font");
    const std::string file = input.rest();
    host.machine.files().put(path, file);

    const auto parsed = ParseFont(file, width, height);
    if (parsed)
        requireSameFont(*parsed, width, height);
    classFontMaster font;
    const bool isLoaded = font.LoadExistingFont(path, width, height);
    Require(isLoaded == parsed.has_value(), "a font is loaded when it can be read");
    if (!isLoaded)
        return;
    font.MagTimes(magnification);
    font.FontColor(kInk);
    PixelBuffer direct(40, 30, kPaper);
    HostTarget byPixel(40, 30);
    const std::int32_t advance = drawing.draw(font, direct);
    Require(drawing.draw(font, byPixel) == advance, "a text has one width");
    Require(advance == font.TextWidth(drawing.text), "which is the one that is told");
    Require(areEqual(direct, byPixel.pixels), "every target shows the same");
}

} // namespace qrtVistrelClasses4
