#include "FontTesting.h"

#include <random>

namespace qrtVistrelClasses4 {
namespace {

/// Letters 9 dots high have a gap of 3. "A" is 3 dots wide, "I" 1; "-" has no width of its own.
Font tallFont() {
    Font font{16, 9, {}};
    Texts rows(9, "#.#");
    rows[0] = ".#.";
    AddLetter(font, 'A', rows);
    AddLetter(font, 'I', Texts(9, "#"));
    return font;
}

/// Letters without gaps: the dots of "N" fill their cell, "." is only a gap.
Font lowFont() {
    Font font{4, 2, {}};
    AddLetter(font, 'N', {"#.#", "###"});
    AddLetter(font, '.', {"..", ".#"});
    AddLetter(font, '0', {"#"}, 0);
    return font;
}

/// Of the two upper rows.
PixelBuffer pixelsFor(const Texts& picture) {
    return UntouchedPixels(static_cast<std::int32_t>(picture[0].size()), 2);
}

class DrawnText : public testing::Test {
protected:
    TestHost host_;
    classFontMaster fonts_;
};

TEST_F(DrawnText, StandsLetterByLetter) {
    struct Case {
        const char* why;
        Font font;
        std::string text;
        std::int16_t magnification;
        std::int32_t width;
        Texts picture;
    };
    const Case cases[] = {
        {"nothing", lowFont(), "", 1, 0, {"--------", "--------"}},
        {"without gaps", lowFont(), "N.N", 1, 8, {"-#.#..#.#-", "-###.####-"}},
        {"letters without a glyph take no room", lowFont(), "?N??N?", 1, 6, {"-#.##.#-", "-######-"}},
        {"those without a width take none either", lowFont(), "0N0", 1, 3, {"-#.#----", "-###----"}},
        {"with gaps", tallFont(), "AI", 1, 10, {"-.#....#...-", "-#.#...#...-"}},
        {"magnified", lowFont(), "N", 2, 6, {"--##..##", "--##..##"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Load(host_, fonts_, c.font);
        fonts_.MagTimes(c.magnification);
        EXPECT_EQ(fonts_.TextWidth(c.text), c.width);
        PixelBuffer pixels = pixelsFor(c.picture);
        std::int32_t advance = 99;
        fonts_.DrawText(c.text, pixels, 0, 0, 1, 0, advance);
        EXPECT_EQ(advance, c.width);
        EXPECT_EQ(PictureOf(pixels), c.picture);
    }
}

TEST_F(DrawnText, HasItsSelectionInverted) {
    struct Case {
        const char* why;
        Font font;
        std::string text;
        std::int16_t first, last;
        Texts picture;
    };
    const Case cases[] = {
        {"some letters", lowFont(), "N.N", 2, 3, {"----##.#.-", "----#....-"}},
        {"letters are counted with those without a glyph", lowFont(), "?N.", 3, 3, {"----##-", "----#.-"}},
        {"with their gaps", tallFont(), "AI", 1, 1, {"-#.####-----", "-.#.###-----"}},
        {"with a gap that has no dots in the font", FontOf(16, Texts(9, std::string(16, '#'))), "A", 1, 1,
         Texts(2, "-................###-")},
        {"more than there are", lowFont(), "N.", -5, 99, {"-.#.##-", "-...#.-"}},
        {"none", lowFont(), "N.", 2, 1, {"------", "------"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Load(host_, fonts_, c.font);
        PixelBuffer pixels = pixelsFor(c.picture);
        fonts_.HilightSelection(c.text, pixels, 0, 0, c.first, c.last, 0);
        EXPECT_EQ(PictureOf(pixels), c.picture);
    }
}

TEST_F(DrawnText, HasAMarkAtTheInsertionPointByTurns) {
    struct Case {
        const char* why;
        Font font;
        std::string text;
        std::int16_t index;
        Texts shown, hidden;
    };
    const Case cases[] = {
        {"in front", lowFont(), "N.", 1, {"#---", "#---"}, {".---", ".---"}},
        {"not before the front", lowFont(), "N.", -7, {"#---", "#---"}, {".---", ".---"}},
        {"on a letter's dots", lowFont(), "N.", 2, {"---#-", "---#-"}, {"---#-", "---#-"}},
        {"behind the last letter", lowFont(), "N.", 3, {"-----#", "-----#"}, {"-----.", "-----#"}},
        {"behind those that take no room", lowFont(), "N.0?", 99, {"-----#", "-----#"}, {"-----.", "-----#"}},
        {"in a gap", tallFont(), "AI", 2, {"------#-", "------#-"}, {"------.-", "------.-"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Load(host_, fonts_, c.font);
        for (const Texts& picture : {c.shown, c.hidden, c.shown, c.hidden}) {
            PixelBuffer pixels = pixelsFor(picture);
            fonts_.CycleIndexMarker(c.text, pixels, 0, 0, c.index, 0);
            EXPECT_EQ(PictureOf(pixels), picture);
        }
    }
}

// Pixels in memory are drawn in runs; nobody may see that.
TEST_F(DrawnText, IsTheSameOnEveryTarget) {
    std::minstd_rand dice;
    const auto random = [&](int least, int most) {
        return least + static_cast<int>(dice() % static_cast<unsigned>(most - least + 1));
    };
    for (int turn = 0; turn < 60; ++turn) {
        SCOPED_TRACE(turn);
        Font font{static_cast<std::int16_t>(random(4, 33)), static_cast<std::int16_t>(random(5, 12)), "AB"};
        for (std::uint8_t& byte : font.store)
            byte = static_cast<std::uint8_t>(random(0, 255));
        for (const char letter : {'A', 'B'})
            font.store[static_cast<std::size_t>(font.glyphOffset(letter))] =
                static_cast<std::uint8_t>(random(0, 30));
        Load(host_, fonts_, font);
        fonts_.MagTimes(static_cast<std::int16_t>(random(1, 5)));
        const auto x = static_cast<float>(random(-30, 90)), y = static_cast<float>(random(-30, 40));
        const auto background = static_cast<std::int16_t>(random(0, 1));

        PixelBuffer pixels = UntouchedPixels(100, 40), foreignPixels = UntouchedPixels(100, 40);
        ForeignTarget foreign(foreignPixels);
        for (DrawingTarget* target :
             {static_cast<DrawingTarget*>(&pixels), static_cast<DrawingTarget*>(&foreign)}) {
            std::int32_t advance = 0;
            fonts_.DrawText("ABA", *target, x, y, background, 1, advance);
            fonts_.DrawLetter("B", *target, y, x, background, 0, advance);
            fonts_.HilightSelection("ABA", *target, x, y, 2, 2, 1);
            fonts_.CycleIndexMarker("ABA", *target, x, y, 2, 0);
            fonts_.CycleIndexMarker("ABA", *target, y, x, 2, 0);
        }
        ASSERT_EQ(PictureOf(pixels), PictureOf(foreignPixels));
    }
}

} // namespace
} // namespace qrtVistrelClasses4
