#include "FontTesting.h"

#include <limits>
#include <numeric>

namespace qrtVistrelClasses4 {
namespace {

class DrawnLetter : public testing::Test {
protected:
    void load(const Font& font) { Load(host_, fonts_, font); }
    /// Draws a letter and gives its advance.
    std::int32_t draw(const std::string& letter, DrawingTarget& target, bool background = false,
                      bool useBitmapDC = false, float x = 0, float y = 0) {
        std::int32_t advance = 99;
        fonts_.DrawLetter(letter, target, x, y, background ? -1 : 0, useBitmapDC ? -1 : 0, advance);
        return advance;
    }

    TestHost host_;
    classFontMaster fonts_;
};

TEST_F(DrawnLetter, ShowsItsDots) {
    struct Case {
        const char* why;
        Font font;
        std::int16_t magnification;
        float x, y;
        bool background;
        Texts picture;
    };
    const Font small = FontOf(6, {"#.#", "...", "##."});
    const Font nine = FontOf(16, {"#.......#", "........."}, 12);
    const Font wide = FontOf(33, {std::string(33, '#')});
    const Case cases[] = {
        {"one dot right of its place", small, 1, 0, 0, false, {"-#-#", "----", "-##-"}},
        {"on a background", small, 1, 0, 0, true, {"-#.#", "-...", "-##."}},
        {"magnified", FontOf(6, {"#."}), 3, 0, 0, true, {"---###...", "---###...", "---###..."}},
        {"fractions cut off", FontOf(6, {"#"}), 1, 1.9F, 1.9F, false, {"----", "--#-"}},
        {"fractions cut off downwards", FontOf(6, {"##", ".#"}), 1, -1.1F, -0.1F, true, {"#-", "--"}},
        {"nothing at no size", small, 0, 0, 0, true, {"----"}},
        {"nothing at a size below", small, -2, 0, 0, true, {"----"}},
        {"columns in groups of eight", nine, 1, 0, 0, false, {"-#-------#", "----------"}},
        {"groups whole, past a cell of 12", nine, 1, 0, 0, true, {"-#.......#.......-"}},
        {"no more groups than the cell of the font", FontOf(8, {"#.......#"}), 1, 0, 0, true, {"-#.......-"}},
        {"no more columns than 24", wide, 1, 0, 0, true, {"-########################-"}},
        {"no columns in a cell beyond 100", FontOf(101, {"#"}, 101), 1, 0, 0, true, {"--"}},
        {"columns in a cell of 100", FontOf(100, {"#"}, 101), 1, 0, 0, true, {"-#......................."}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        load(c.font);
        fonts_.MagTimes(c.magnification);
        PixelBuffer pixels = UntouchedPixels(static_cast<std::int32_t>(c.picture[0].size()),
                                             static_cast<std::int32_t>(c.picture.size()));
        draw("A", pixels, c.background, false, c.x, c.y);
        EXPECT_EQ(PictureOf(pixels), c.picture);
    }
}

TEST_F(DrawnLetter, TellsWhereTheNextOneStarts) {
    struct Case {
        std::int16_t width, height, magnification;
        std::int32_t advance;
    };
    const Case cases[] = {{4, 8, 1, 4},    {6, 8, 3, 18},   {9, 8, 1, 9},    {6, 9, 1, 9},
                          {16, 16, 1, 19}, {24, 32, 2, 54}, {33, 24, 1, 36}, {255, 16, 32767, 8453886},
                          {0, 8, 4, 0},    {0, 16, 4, 12},  {6, 16, -1, -9}};
    PixelBuffer none(0, 0);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.width << " x " << c.height);
        Font font{c.width, c.height, "A"};
        font.store[0] = static_cast<std::uint8_t>(c.width);
        load(font);
        fonts_.MagTimes(c.magnification);
        EXPECT_EQ(draw("A", none), c.advance);
        EXPECT_EQ(fonts_.LetterWidth("A"), c.advance);
        EXPECT_EQ(fonts_.LetterWidth("ABC"), c.advance) << "the first alone";
        EXPECT_EQ(draw("B", none), 0) << "no glyph";
        EXPECT_EQ(draw("", none), 0);
        EXPECT_EQ(fonts_.GlyphOffset(""), -1);
    }
}

TEST_F(DrawnLetter, EndsWhereTheStoreEnds) {
    Font font{8, 162, std::string(102, '\0')};
    std::iota(font.characters.begin(), font.characters.end(), '\0');
    font.store.fill(0xff);
    load(font); // records of 163 bytes
    PixelBuffer pixels = UntouchedPixels(10, 2);
    EXPECT_EQ(draw(std::string(1, 100), pixels, true), 258) << "of this one the store holds the width";
    EXPECT_EQ(draw(std::string(1, 101), pixels, true), 0);
    EXPECT_EQ(PictureOf(pixels), Texts(2, "----------"));

    font = {24, 24, std::string(224, '\0')};
    std::iota(font.characters.begin(), font.characters.end(), '\0');
    font.store.fill(0xff);
    load(font); // records of 73 bytes, the last of which starts 22 bytes before the end
    pixels = UntouchedPixels(10, 24);
    draw("\xdf", pixels, true);
    Texts picture(24, "-########-");
    picture[21] = picture[22] = picture[23] = "----------";
    EXPECT_EQ(PictureOf(pixels), picture);
}

TEST_F(DrawnLetter, UsesATargetOfTheHostPixelByPixel) {
    struct Case {
        const char* why;
        bool background, useBitmapDC;
        Texts calls;
    };
    const Case cases[] = {
        {"lit dots", false, false, {"hdc", "font 4 0", "font 5 0", "font 4 1", "font 5 1"}},
        {"all dots, on the bitmap",
         true,
         true,
         {"GetBitmapDC", "BackColor", "back 2 0", "BackColor", "back 3 0", "BackColor", "back 2 1",
          "BackColor", "back 3 1", "font 4 0", "font 5 0", "font 4 1", "font 5 1", "ReleaseBitmapDC"}},
    };
    load(FontOf(6, {".#"}));
    fonts_.MagTimes(2);
    PixelBuffer pixels(6, 2);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        ForeignTarget target(pixels);
        draw("A", target, c.background, c.useBitmapDC);
        EXPECT_EQ(target.calls, c.calls);
        target.calls.clear();
        draw("B", target, c.background, c.useBitmapDC);
        EXPECT_EQ(target.calls, Texts()) << "no glyph";
    }
}

TEST_F(DrawnLetter, TrapsItsErrors) {
    load(FontOf(6, {"#"}));
    PixelBuffer pixels(6, 2);
    ForeignTarget target(pixels);
    target.mostCalls = 1;
    EXPECT_EQ(draw("A", target, false, true), 0);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{438});
    EXPECT_EQ(target.calls, (Texts{"GetBitmapDC", "ReleaseBitmapDC"})) << "the host gets its context back";

    constexpr float farAway = 2147483520; // the last one that 32 bits hold
    struct Case {
        const char* why;
        float x, y;
        std::int16_t magnification;
        Numbers errors;
    };
    const Case cases[] = {
        {"far to the right", farAway, 0, 1, {}},
        {"too far", 2147483648.0F, 0, 1, {6}},
        {"dots pass it", farAway, 0, 100, {6}},
        {"downwards as well", 0, farAway, 200, {6}},
        {"far to the left", -2147483648.0F, 0, 1, {}},
        {"too far up", 0, -3e9F, 1, {6}},
        {"nowhere", std::numeric_limits<float>::quiet_NaN(), 0, 1, {6}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        fonts_.MagTimes(c.magnification);
        draw("A", pixels, false, false, c.x, c.y);
        EXPECT_EQ(host_.reports.takeNumbers(), c.errors);
    }
}

TEST_F(DrawnLetter, StandsOnTheTraceWithItsArguments) {
    load(FontOf(6, {"#"}));
    PixelBuffer pixels(6, 2);
    KeptTrace trace;
    trace.withModules = true;
    const ScopedTraceRecorder use(trace);
    draw("A", pixels, true, false, 1.5F);
    const std::string name =
        " classFontMaster.cls Sub DrawLetter (letter=A, target=<PixelBuffer>, x=1.5, y=0, "
        "drawBackground=-1, useBitmapDC=0, advance=";
    EXPECT_EQ(trace.lines, (Texts{">" + name + "0)", "<" + name + "1)"}));
}

} // namespace
} // namespace qrtVistrelClasses4
