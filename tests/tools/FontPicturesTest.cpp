#include "tools/FontPictures.h"

#include "tools/FontScaling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kTwoLetters = "; a letter of two bytes a row, and one of one\r\n"
                                         "size 12x3\r\n"
                                         "\r\n"
                                         "66 B, out of order\r\n"
                                         "##\r\n"
                                         ".#\r\n"
                                         "..\r\n"
                                         "33 !\r\n"
                                         "#.........\r\n"
                                         ".......##.\r\n"
                                         ".........#"; // no line end

TEST(FontPictures, BecomeTheBytesOfBothLayouts) {
    ErrorLines errors;
    const auto pictures = ReadFontPictures(kTwoLetters, errors);
    ASSERT_TRUE(pictures);
    constexpr std::string_view capitalB{"\2\xC0\x40\0\0\0\0", 7};
    constexpr std::string_view exclamationMark{"\12\x80\1\0\0\x80\x40", 7};

    const auto header = FontOf(*pictures, FontLayout::header, errors);
    ASSERT_TRUE(header);
    EXPECT_EQ(HeaderFontBytes(*header),
              std::string("\0\2\14\3B!", 6).append(capitalB).append(exclamationMark));

    const auto sized = FontOf(*pictures, FontLayout::sized, errors);
    ASSERT_TRUE(sized);
    const std::string bytes = SizedFontBytes(*sized);
    constexpr std::size_t record = 7;
    const std::string none(record, '\0');
    EXPECT_EQ(bytes.size(), 96 * record);
    EXPECT_EQ(bytes.substr(0, 3 * record), none + std::string(exclamationMark) + none);
    EXPECT_EQ(bytes.substr(('B' - ' ') * record, record), capitalB);
    EXPECT_THAT(errors.lines(), IsEmpty());
}

std::string rows(int count) {
    std::string text;
    for (int row = 0; row < count; ++row)
        text += ".\n";
    return text;
}

TEST(FontPictures, TellTheLineThatIsWrong) {
    struct Case {
        const char* why;
        std::string source, error;
        FontLayout layout = FontLayout::header;
    };
    const std::string start = "size 4x2\n65 A\n";
    const std::string noSize = R"(line 1: has to be "size" with width and height, as in "size 6x8")";
    const std::string noCode =
        R"(line 2: neither a row of dots ("#" and ".") nor the code of a letter (0 to 255))";
    const Case cases[] = {
        {"nothing", "", "has no line with the size"},
        {"dots before the size", "..", noSize},
        {"a size beyond a byte", "size 256x8", noSize},
        {"a size of nothing", "size 0x8", noSize},
        {"no letters", "size 4x2\n", "a font has 1 to 255 letters, not 0"},
        {"dots before a letter", "size 4x2\n\n..", "line 3: a row of dots before the code of its letter"},
        {"a letter by its character", "size 4x2\nA\n..\n..", noCode},
        {"a code beyond a byte", "size 4x2\n256\n..\n..", noCode},
        {"a letter twice", start + "..\n..\n65\n..\n..", "line 5: a second letter 65"},
        {"another mark for a dot", start + ".#\n.o\n", R"(line 4: a row holds nothing but "#" and ".")"},
        {"rows of different widths", start + "...\n..", "line 4: the row is 2 dots wide, the first 3"},
        {"a row too few before the next letter", start + "..\n66\n..\n..",
         "line 2: letter 65 has 1 rows, not 2"},
        {"a row too many at the end", start + "..\n..\n..", "line 2: letter 65 has 3 rows, not 2"},
        {"a letter wider than its bytes", start + ".........\n.........",
         "line 2: letter 65 is wider than the 8 dots that fonts 4 wide hold"},
        {"a width whose letters would show bytes of the next", "size 9x1\n65\n.",
         "letters of fonts 9 wide cannot be drawn; widths are 4 to 8, 12 to 16 and 20 to 100"},
        {"a letter that has another's picture", "size 4x1\n127\n.\n166\n.",
         "line 4: letter 166 would never be drawn: letter 127 is, in its place"},
        {"a letter outside a font without a header", "size 4x1\n200\n.",
         "line 2: letter 200 is not one of 32 to 127, which a font without a header holds",
         FontLayout::sized},
        {"more bytes than a font has", "size 100x255\n126\n" + rows(255),
         "line 2: letter 126 does not fit: all letters together take more than 16301 bytes",
         FontLayout::sized},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        ErrorLines errors;
        const auto pictures = ReadFontPictures(c.source, errors);
        EXPECT_FALSE(pictures && FontOf(*pictures, c.layout, errors));
        EXPECT_THAT(errors.lines(), ElementsAre("vistrel: " + c.error));
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
    const auto large = Enlarged(small, {12, 16}, errors);
    ASSERT_TRUE(large);
    EXPECT_EQ(large->letters[0].rows, Picture(16, "##"));
    EXPECT_EQ(Enlarged(small, {4, 8}, errors)->letters[0].rows, small.letters[0].rows);
    EXPECT_FALSE(Enlarged(small, {12, 12}, errors));
}

} // namespace
} // namespace qrtVistrelClasses4
