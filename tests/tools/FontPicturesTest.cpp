#include "tools/fonts/FontPictures.h"

#include "tools/fonts/FontScaling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

using testing::ElementsAre;

TEST(FontPictures, BecomeTheBytesOfBothLayouts) {
    ErrorLines errors;
    const auto pictures = ReadFontPictures("; a letter of one byte a row, and one of two\r\nsize 12x3\r\n\r\n"
                                           "66 B, out of order\r\n##\r\n.#\r\n..\r\n"
                                           "33 !\r\n#.........\r\n.......##.\r\n.........#", // no line end
                                           errors);
    ASSERT_TRUE(pictures);
    const std::string capitalB("\2\xC0\x40\0\0\0\0", 7), exclamationMark("\12\x80\1\0\0\x80\x40", 7),
        none(7, '\0');
    EXPECT_EQ(HeaderFontBytes(FontOf(*pictures, FontLayout::header, errors).value()),
              std::string("\0\2\14\3B!", 6) + capitalB + exclamationMark);
    std::string sized = none + exclamationMark;
    for (char letter = '"'; letter < 127; ++letter)
        sized += letter == 'B' ? capitalB : none;
    EXPECT_EQ(SizedFontBytes(FontOf(*pictures, FontLayout::sized, errors).value()), sized + none);
}

TEST(FontPictures, ReportTheLineThatIsWrong) {
    std::string tall = "size 100x255\n126\n";
    for (int row = 0; row < 255; ++row)
        tall += ".\n";
    const std::string start = "size 4x2\n65 A\n";
    const std::string noSize = R"(line 1: must be "size" with width and height, such as "size 6x8")";
    const std::string noCode =
        R"(line 2: neither a row of dots ("#" and ".") nor the code of a letter (0 to 255))";
    constexpr auto header = FontLayout::header, sized = FontLayout::sized;
    const struct {
        std::string source;
        FontLayout layout;
        std::string error;
    } cases[] = {
        {"", header, "has no line with the size"},
        {"size 256x8", header, noSize},
        {"size 0x8", header, noSize},
        {"size 4x2\n", header, "a font has 1 to 255 letters, not 0"},
        {"size 4x2\n\n..", header, "line 3: a row of dots before the code of its letter"},
        {"size 4x2\nA\n..\n..", header, noCode},
        {"size 4x2\n256\n..\n..", header, noCode},
        {start + "..\n..\n65\n..\n..", header, "line 5: a second letter 65"},
        {start + ".#\n.o\n", header, R"(line 4: a row holds nothing but "#" and ".")"},
        {start + "...\n..", header, "line 4: the row is 2 dots wide, the first 3"},
        {start + "..\n66\n..\n..", header, "line 2: letter 65 has 1 rows, not 2"},
        {start + "..\n..\n..", header, "line 2: letter 65 has 3 rows, not 2"},
        {start + ".........\n.........", header,
         "line 2: letter 65 is wider than the 8 dots that fonts 4 wide hold"},
        {"size 9x1\n65\n.", header,
         "letters of fonts 9 wide cannot be drawn; widths are 4 to 8, 12 to 16 and 20 to 100"},
        {"size 4x1\n127\n.\n166\n.", header,
         "line 4: letter 166 would never be drawn: letter 127 is, in its place"},
        {"size 4x1\n200\n.", sized,
         "line 2: letter 200 is not one of 32 to 127, which a font without a header holds"},
        {tall, sized, "line 2: letter 126 does not fit: all letters together take more than 16301 bytes"},
    };
    for (const auto& [source, layout, error] : cases) {
        SCOPED_TRACE(source);
        ErrorLines errors;
        const auto pictures = ReadFontPictures(source, errors);
        EXPECT_FALSE(pictures && FontOf(*pictures, layout, errors));
        EXPECT_THAT(errors.lines(), ElementsAre("vistrel: " + error));
    }
}

TEST(Enlarged, KeepsStraightStrokesAndSlantsThoseThatTouchByCorners) {
    EXPECT_THAT(Enlarged({".##.", //
                          "#..#", //
                          "####"},
                         2),
                ElementsAre("..####..", //
                            ".######.", //
                            "###..###", //
                            "##....##", //
                            "########", //
                            "########"));
}

TEST(Enlarged, TakesTheGapFromLettersThatAreDrawnWithOne) {
    ErrorLines errors;
    const FontPictures small{{4, 8}, {{'i', 1, Picture(8, "#.")}}};
    EXPECT_EQ(Enlarged(small, {12, 16}, errors)->letters[0].rows, Picture(16, "##"));
    EXPECT_EQ(Enlarged(small, {4, 8}, errors)->letters[0].rows, small.letters[0].rows);
}

} // namespace
} // namespace qrtVistrelClasses4
