#include "fonts/TextDrawing.h"

#include "FontTesting.h"
#include "fonts/DotPainter.h"
#include "frame/RuntimeError.h"

#include <functional>
#include <limits>
#include <numeric>

namespace qrtVistrelClasses4 {
namespace {

/// A target that can only set pixels, and records how it is used.
class ForeignTarget final : public DrawingTarget, private DeviceContext {
public:
    explicit ForeignTarget(PixelBuffer& pixels) : pixels_(pixels) {}

    std::string ClassName() const override { return "PictureBox"; }
    DeviceContext& GetBitmapDC() override { return record("GetBitmapDC"); }
    void ReleaseBitmapDC() noexcept override { record("ReleaseBitmapDC"); }
    DeviceContext& hdc() override { return record("hdc"); }
    Color BackColor() override { return kBackColor; }
    Texts takeCalls() { return std::exchange(calls_, {}); }

    bool refuses = false; ///< Pixels.

private:
    DeviceContext& record(const std::string& call) {
        calls_.push_back(call);
        return *this;
    }
    void SetPixel(std::int32_t x, std::int32_t y, Color color) override {
        if (refuses)
            throw RuntimeError(438, "Object doesn't support this property or method");
        record((color == kFontColor ? "font " : "back ") + std::to_string(x) + " " + std::to_string(y));
        pixels_.fill(x, y, 1, 1, color);
    }

    PixelBuffer& pixels_;
    Texts calls_;
};

// What can be drawn.
using Act = std::function<void(const Lettering&, DrawingTarget&)>;

Act text(const std::string& letters, bool background = true, float x = 0, float y = 0) {
    return [=](const Lettering& lettering, DrawingTarget& target) {
        EXPECT_EQ(DrawLetters(lettering, letters, {target, x, y}, background), WidthOf(lettering, letters));
    };
}
Act selection(const std::string& letters, int first, int last) {
    return [=](const Lettering& lettering, DrawingTarget& target) {
        DrawSelection(lettering, letters, {target}, first, last);
    };
}
/// Shows a mark, and hides it again if `isHidden`.
Act mark(const std::string& letters, int index, bool isHidden = false) {
    return [=](const Lettering& lettering, DrawingTarget& target) {
        DrawIndexMarker(lettering, letters, {target}, index, true);
        if (isHidden)
            DrawIndexMarker(lettering, letters, {target}, index, false);
    };
}

TEST(Drawing, ShowsTheSameDotsOnEveryTarget) {
    const Font small = FontOf(6, {"#.#", "...", "##."});
    const Font nine = FontOf(16, {"#.......#"}, 12);
    const Font wide = FontOf(33, {std::string(33, '#')}), cell100 = FontOf(100, {"#"}, 101);
    const Font block = FontOf(16, Texts(9, std::string(16, '#')));
    Font low{4, 2, {}}; // letters without gaps: the dots of "N" fill their cell, "." is only a gap
    AddLetter(low, 'N', {"#.#", "###"});
    AddLetter(low, '.', {"..", ".#"});
    AddLetter(low, '0', {"#"}, 0);
    Font tall{16, 9, {}}; // letters 9 dots high have a gap of 3
    AddLetter(tall, 'A', {".#.", "#.#", "#.#", "#.#", "#.#", "#.#", "#.#", "#.#", "#.#"});
    AddLetter(tall, 'I', Texts(9, "#"));
    const struct {
        const char* why;
        Font font;
        Act act;
        Texts picture; ///< The left upper corner.
        std::int16_t magnification = 1;
    } cases[] = {
        {"one dot right of its place", small, text("A", false), {"-#-#", "----", "-##-"}},
        {"on a background", small, text("A"), {"-#.#", "-...", "-##."}},
        {"fractions cut off downwards", small, text("A", true, -1.1F, -1.1F), {"#.-", "---"}},
        {"nothing at no size", small, text("A"), {"----"}, 0},
        {"groups whole, past a cell of 12", nine, text("A"), {"-#.......#.......-"}},
        {"no more groups than the cell of the font", FontOf(8, {"#.......#"}), text("A"), {"-#.......-"}},
        {"no more columns than 24", wide, text("A"), {"-########################-"}},
        {"columns in a cell of 100", cell100, text("A"), {"-#......................."}},
        {"no columns in a cell beyond 100", FontOf(101, {"#"}, 101), text("A"), {"--"}},
        {"letters without gaps", low, text("N.N"), {"-#.#..#.#-", "-###.####-"}},
        {"letters without a glyph or a width take no room", low, text("?N0?N?"), {"-#.##.#-", "-######-"}},
        {"letters with gaps", tall, text("AI"), {"-.#....#...-", "-#.#...#...-"}},
        {"magnified", low, text("N."), {"--##..##....-", "--##..##....-", "--######..##-"}, 2},
        {"cut off", low, text("NN", true, -3.5F, -1), {"##...####", "##...####", "#########"}, 3},
        {"a selection", low, selection("N.N", 2, 3), {"----##.#.-", "----#....-"}},
        {"letters counted with those without a glyph", low, selection("?N.", 3, 3), {"----##-", "----#.-"}},
        {"a selection with gaps", tall, selection("AI", 1, 1), {"-#.####-----", "-.#.###-----"}},
        {"a gap without dots in the font", block, selection("A", 1, 1), {"-................###-"}},
        {"a selection of more than there is", low, selection("N.", -5, 99), {"-.#.##-", "-...#.-"}},
        {"a mark not before the front", low, mark("N.", -7), {"#---", "#---"}},
        {"which is hidden again", low, mark("N.", -7, true), {".---", ".---"}},
        {"a mark on a letter's dots", low, mark("N.", 2, true), {"---#-", "---#-"}},
        {"a mark behind what takes no room", low, mark("N.0?", 99, true), {"-----.", "-----#"}},
        {"a mark in a gap", tall, mark("AI", 2, true), {"------.-", "------.-"}},
    };
    for (const auto& row : cases) {
        const auto width = static_cast<std::int32_t>(row.picture[0].size());
        const auto height = static_cast<std::int32_t>(row.picture.size());
        PixelBuffer pixels = UntouchedPixels(width, height), foreignPixels = pixels;
        ForeignTarget foreign(foreignPixels);
        for (DrawingTarget* target : std::initializer_list<DrawingTarget*>{&pixels, &foreign})
            row.act({row.font, row.magnification, kFontColor}, *target);
        EXPECT_EQ(PictureOf(pixels), row.picture) << row.why;
        EXPECT_EQ(foreignPixels, pixels) << "pixel by pixel: " << row.why;
    }
}

TEST(Drawing, ReturnsWhereTheNextLetterStarts) {
    const std::tuple<std::int16_t, std::int16_t, std::int16_t, std::int64_t> cases[] = {
        {6, 8, 3, 18}, {6, 9, 1, 9},   {24, 32, 2, 54}, {255, 16, 32767, 8453886},
        {0, 8, 4, 0},  {0, 16, 4, 12}, {6, 16, -1, -9}};
    PixelBuffer none(0, 0);
    for (const auto& [width, height, magnification, advance] : cases) {
        const Font font = FontOf(width, Texts(height, std::string(width, '.')));
        const Lettering lettering{font, magnification};
        EXPECT_EQ(DrawLetters(lettering, "A", {none}, false), advance) << width;
        EXPECT_EQ(WidthOf(lettering, "ABAA"), 3 * advance) << "B has no glyph";
        EXPECT_EQ(DrawLetters(lettering, "B", {none}, false), 0);
    }
}

TEST(Drawing, EndsWhereTheStoreEnds) {
    Font font{24, 24, std::string(225, '\0')};
    std::iota(font.characters.begin(), font.characters.end(), '\0');
    font.store.fill(0xff); // records of 73 bytes, the last but one of which starts 22 bytes before the end
    PixelBuffer pixels = UntouchedPixels(10, 24);
    EXPECT_EQ(DrawLetters({font, 1, kFontColor}, "\xdf", {pixels}, true), 258);
    EXPECT_EQ(DrawLetters({font, 1, kFontColor}, "\xe0", {pixels}, true), 0);
    Texts picture(24, "-########-");
    picture[21] = picture[22] = picture[23] = "----------";
    EXPECT_EQ(PictureOf(pixels), picture);
}

TEST(Drawing, UsesATargetOfTheHostPixelByPixel) {
    const Font font = FontOf(6, {".#"});
    const Lettering lettering{font, 2, kFontColor};
    PixelBuffer pixels(6, 2);
    ForeignTarget target(pixels);
    DrawLetters(lettering, "A", {target}, false);
    DrawLetters(lettering, "B", {target}, false); // no glyph, no use of the target
    EXPECT_EQ(target.takeCalls(), (Texts{"hdc", "font 4 0", "font 5 0", "font 4 1", "font 5 1"}));
    DrawLetters(lettering, "A", {target, 0, 0, true}, true);
    EXPECT_EQ(target.takeCalls(), (Texts{"GetBitmapDC", "back 2 0", "back 3 0", "back 2 1", "back 3 1",
                                         "font 4 0", "font 5 0", "font 4 1", "font 5 1", "ReleaseBitmapDC"}));
    target.refuses = true;
    EXPECT_THROW(DrawLetters(lettering, "A", {target, 0, 0, true}, false), RuntimeError);
    EXPECT_EQ(target.takeCalls(), (Texts{"GetBitmapDC", "ReleaseBitmapDC"})) << "the host gets it back";
}

TEST(Drawing, RefusesPlacesBeyondAllPixels) {
    const Font font = FontOf(6, {"#"});
    PixelBuffer pixels(6, 2);
    constexpr float farAway = 2147483520; // the last one that 32 bits hold
    const std::tuple<float, float, std::int16_t, bool> cases[] = {
        {farAway, 0, 1, true},        {2147483648.0F, 0, 1, false},
        {farAway, 0, 100, false},     {0, farAway, 200, false},
        {-2147483648.0F, 0, 1, true}, {std::numeric_limits<float>::quiet_NaN(), 0, 1, false}};
    for (const auto& [x, y, magnification, isDrawn] : cases) {
        const auto draw = [&] { DrawLetters({font, magnification}, "A", {pixels, x, y}, false); };
        if (isDrawn)
            EXPECT_NO_THROW(draw()) << x << ' ' << y;
        else
            EXPECT_THROW(draw(), RuntimeError) << x << ' ' << y;
    }
}

TEST(PixelBuffer, TakesPixelsOneByOneAsWell) {
    PixelBuffer pixels = UntouchedPixels(2, 1);
    DrawingTarget& target = pixels;
    EXPECT_EQ(target.ClassName(), "PixelBuffer");
    target.hdc().SetPixel(0, 0, kFontColor);
    target.GetBitmapDC().SetPixel(1, 0, target.BackColor());
    target.ReleaseBitmapDC();
    EXPECT_EQ(pixels.row(0)[0], kFontColor);
    EXPECT_EQ(pixels.row(0)[1], target.BackColor());
}

TEST(DotPainter, SkipsWhatNeitherShowsNorFails) {
    PixelBuffer pixels = UntouchedPixels(8, 2);
    ForeignTarget foreign(pixels);
    constexpr float farAway = 2147483520; // 127 before the last one that 32 bits hold
    const struct {
        const char* why;
        DrawingTarget& target;
        float x, y;
        std::int16_t magnification;
        bool isPast;
    } cases[] = {
        {"in the last column", pixels, 7, 0, 1, false},
        {"right of it", pixels, 8, 0, 1, true},
        {"far away", pixels, farAway, 0, 1, true},
        {"dots to the right would be an error", pixels, farAway, 0, 6, false},
        {"dots below would be one", pixels, 8, farAway, 1, false},
        {"a host sees every pixel", foreign, 8, 0, 1, false},
    };
    for (const auto& [why, target, x, y, magnification, isPast] : cases)
        EXPECT_EQ(
            DotPainter::on(target, false, Corner(x, y), {magnification, kFontColor, Ink::font, Ink::none})
                ->isPastSurface(25, 200),
            isPast)
            << why;
}

} // namespace
} // namespace qrtVistrelClasses4
