#include <qrtVistrelClasses4/LedPainter.h>

#include <gtest/gtest.h>

#include <string>

namespace qrtVistrelClasses4 {
namespace {

/// "#" for a pixel of a lit dot, "o" for one of a dark dot, of a lit one's glow or of the rim, "." for a gap.
std::string looksOf(std::span<const Color> pixels) {
    std::string looks;
    for (const Color pixel : pixels)
        looks += RedOf(pixel) >= 128 ? '#' : RedOf(pixel) >= 36 ? 'o' : '.';
    return looks;
}

TEST(LedPainter, ShowsLitDotsDarkDotsAndGaps) {
    Raster dots(2, 1);
    dots.row(0)[1] = Rgb(255, 0, 0);
    const struct {
        int scale;
        DotSize size;
        std::string firstRow, middleRow;
    } cases[] = {{2, {8, 6}, "oooo##oo", "oooo##oo"}, {5, {16, 11}, "ooo.....o###oooo", "ooo.ooo.#####ooo"}};
    for (const auto& [scale, size, firstRow, middleRow] : cases) {
        LedPainter painter(scale);
        Raster picture(size.width, size.height);
        EXPECT_EQ(painter.sizeOf(2), size.width);
        painter.draw(dots, picture, 0, 0);
        const std::int32_t rim = (size.height - scale) / 2;
        EXPECT_EQ(looksOf(picture.row(rim - 1)), std::string(picture.row(0).size(), 'o'));
        EXPECT_EQ(looksOf(picture.row(rim)), firstRow);
        EXPECT_EQ(looksOf(picture.row(size.height / 2)), middleRow);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
