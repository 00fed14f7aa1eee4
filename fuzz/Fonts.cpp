// Any bytes as a font of both layouts, and text drawn in it: layout, width, height, place, a text, the file.
#include "Fuzz.h"
#include "fonts/FontFile.h"
#include "fonts/TextDrawing.h"
#include <qrtVistrelClasses4/PixelBuffer.h>

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

void requireSameFont(const Font& font, std::int16_t width, std::int16_t height) {
    const bool hasHeader = width == kSizeFromFile && height == kSizeFromFile;
    const std::string bytes = hasHeader ? HeaderFontBytes(font) : SizedFontBytes(font);
    const auto again = ParseFont(bytes, width, height);
    Require(again && again->characters == font.characters && again->width == font.width &&
                again->height == font.height,
            "sizes and characters come back");
    Require(HasLengthOfFont(bytes, width, height) ==
                (font.width > 0 && font.height > 0 && !font.characters.empty()),
            "a font that is written has the length of one");
    Require((hasHeader ? HeaderFontBytes(*again) : SizedFontBytes(*again)) == bytes, "glyphs come back");
}

struct Drawing {
    std::string text;
    float x, y;
    bool background;
    int first, last;

    std::int64_t draw(const Lettering& lettering, DrawingTarget& target) const {
        const std::int64_t width = DrawLetters(lettering, text, {target, x, y}, background).width;
        DrawSelection(lettering, text, {target, x, y + 9}, first, last);
        for (const bool isShown : {true, false})
            DrawIndexMarker(lettering, text, {target, x, y}, first, isShown);
        return width;
    }
};

} // namespace

void RunFuzzed(FuzzedInput input) {
    const bool hasHeader = input.byte() % 2 == 0;
    const auto number = [&] { return static_cast<std::int16_t>(static_cast<std::int8_t>(input.byte())); };
    const std::int16_t width = hasHeader ? kSizeFromFile : number();
    const std::int16_t height = hasHeader ? kSizeFromFile : number();
    const auto magnification = static_cast<std::int16_t>(number() % 6);
    const Drawing drawing{input.text().substr(0, 16),
                          static_cast<float>(number()),
                          static_cast<float>(number()),
                          number() != 0,
                          number() % 20,
                          number() % 20};
    const auto font = ParseFont(input.rest(), width, height);
    if (!font)
        return;
    requireSameFont(*font, width, height);
    const Lettering lettering{*font, magnification, kInk};
    PixelBuffer direct(40, 30, kPaper);
    HostTarget byPixel(40, 30);
    const std::int64_t drawn = drawing.draw(lettering, direct);
    Require(drawing.draw(lettering, byPixel) == drawn, "a text has one width");
    Require(drawn == WidthOf(lettering, drawing.text), "which is the one that is measured");
    Require(direct == byPixel.pixels, "every target shows the same");
    PixelBuffer start(40, 30, kPaper);
    DrawLetters({*font, 1, kInk}, drawing.text, {start}, false);
    const int row = drawing.last < 0 ? 0 : drawing.last, column = drawing.first < 0 ? 0 : drawing.first;
    const auto line = start.row(row).subspan(static_cast<std::size_t>(column));
    Require(std::ranges::count(line, kInk) == 0 || HasLitDots(*font, drawing.text, column, row, row),
            "dots that are drawn are found");
}

} // namespace qrtVistrelClasses4
