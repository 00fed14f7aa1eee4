#include "tools/preview/LedPicture.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

/// "#" for a pixel of a lit dot, "o" for one of a dark dot, of a lit one's glow or of the rim, "." for a gap.
std::string looksOf(const PixelBuffer& picture) {
    std::string looks;
    for (std::int32_t y = 0; y < picture.height(); ++y) {
        looks += '\n';
        for (const Color pixel : picture.row(y))
            looks += RedOf(pixel) >= 128 ? '#' : RedOf(pixel) >= 36 ? 'o' : '.';
    }
    return looks;
}

TEST(LedPicture, ShowsLitDotsDarkDotsAndGaps) {
    PixelBuffer dots(2, 1);
    dots.row(0)[1] = Rgb(255, 0, 0);
    for (const auto& [scale, looks] : {std::pair(2, R"(
oooooooo
oooooooo
oooo##oo
oooo##oo
oooooooo
oooooooo)"),
                                       {5, R"(
oooooooooooooooo
oooooooooooooooo
oooooooooooooooo
ooo.....o###oooo
ooo.ooo.#####ooo
ooo.ooo.#####ooo
ooo.ooo.#####ooo
ooo.....o###oooo
oooooooooooooooo
oooooooooooooooo
oooooooooooooooo)"}}) {
        LedPainter painter(scale);
        PixelBuffer picture(static_cast<std::int32_t>(painter.sizeOf(2)),
                            static_cast<std::int32_t>(painter.sizeOf(1)));
        painter.draw(dots, picture, 0, 0);
        EXPECT_EQ(looksOf(picture), looks);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
