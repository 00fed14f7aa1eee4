#include "fonts/TextDrawing.h"

#include "FontTesting.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <functional>
#include <limits>
#include <numeric>

namespace qrtVistrelClasses4 {
namespace {

/// A target that can only set pixels, and records how it is used.
class ForeignTarget final : public DrawingTarget, private DeviceContext {
public:
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
    }

    Texts calls_;
};

// What can be drawn.
using Act = std::function<void(const Lettering&, DrawingTarget&)>;

Act text(const std::string& letters, bool background = true, float x = 0, float y = 0) {
    return [=](const Lettering& lettering, DrawingTarget& target) {
        EXPECT_EQ(DrawLetters(lettering, letters, {target, x, y}, background).width,
                  WidthOf(lettering, letters));
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

TEST(Drawing, ShowsTheDotsOfLetters) {
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
    Font full{24, 24,
              std::string(225, '\0')}; // of records of 73 bytes, so that glyph 223 is cut off by the store
    std::iota(full.characters.begin(), full.characters.end(), '\0');
    full.store.fill(0xff);
    Texts cutOff(24, "-########-");
    cutOff[21] = cutOff[22] = cutOff[23] = "----------";
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
        {"in large dots", low, text("N"), Texts(5, "-----#####.....#####-"), 5},
        {"cut off", low, text("NN", true, -3.5F, -1), {"##...####", "##...####", "#########"}, 3},
        {"a glyph up to the end of the store, and one after it", full, text("\xdf\xe0"), cutOff},
        {"a selection", low, selection("N.N", 2, 3), {"----##.#.-", "----#....-"}},
        {"letters counted with those without a glyph", low, selection("?N.", 3, 3), {"----##-", "----#.-"}},
        {"a selection with gaps", tall, selection("AI", 1, 1), {"-#.####-----", "-.#.###-----"}},
        {"a gap without dots in the font", block, selection("A", 1, 1), {"-................###-"}},
        {"a selection of more than there is", low, selection("N.", -5, 99), {"-.#.##-", "-...#.-"}},
        {"a mark not before the front", low, mark("N.", -7), {"#---", "#---"}},
        {"which is hidden again", low, mark("N.", -7, true), {".---", ".---"}},
        {"a mark on a letter's dots", low, mark("N.", 2, true), {"---#-", "---#-"}},
        {"a mark after letters that take no room", low, mark("N.0?", 99, true), {"-----.", "-----#"}},
        {"a mark in a gap", tall, mark("AI", 2, true), {"------.-", "------.-"}},
    };
    for (const auto& row : cases) {
        const auto width = static_cast<std::int32_t>(row.picture[0].size());
        const auto height = static_cast<std::int32_t>(row.picture.size());
        PixelBuffer pixels = UntouchedPixels(width, height);
        row.act({row.font, row.magnification, kFontColor}, pixels);
        EXPECT_EQ(PictureOf(pixels), row.picture) << row.why;
    }
}

TEST(Drawing, UsesATargetOfTheHostPixelByPixel) {
    const Font font = FontOf(6, {".#"});
    const Lettering lettering{font, 2, kFontColor};
    ForeignTarget target;
    DrawLetters(lettering, "A", {target}, false);
    DrawLetters(lettering, "B", {target}, false); // no glyph, no use of the target
    EXPECT_EQ(target.takeCalls(), (Texts{"hdc", "font 4 0", "font 5 0", "font 4 1", "font 5 1"}));
    DrawLetters(lettering, "A", {target, 0, 0, true}, true);
    EXPECT_EQ(target.takeCalls(), (Texts{"GetBitmapDC", "back 2 0", "back 3 0", "back 2 1", "back 3 1",
                                         "font 4 0", "font 5 0", "font 4 1", "font 5 1", "ReleaseBitmapDC"}));
    DrawLetters(lettering, "A", {target, 99}, false);
    EXPECT_EQ(target.takeCalls().size(), 5U) << "the host gets even what it cannot show";
    target.refuses = true;
    EXPECT_THROW(DrawLetters(lettering, "A", {target, 0, 0, true}, false), RuntimeError);
    EXPECT_EQ(target.takeCalls(), (Texts{"GetBitmapDC", "ReleaseBitmapDC"})) << "the host gets it back";
}

TEST(Drawing, NothingIsDrawnOnAPictureThatWasMovedAway) {
    PixelBuffer pixels(6, 2);
    const PixelBuffer moved = std::move(pixels);
    pixels.fill(0, 0, 6, 2, kFontColor); // NOLINT(bugprone-use-after-move): what is tested
    EXPECT_EQ(pixels.size(), DotSize{});
    EXPECT_EQ(moved, PixelBuffer(6, 2));
}

TEST(Drawing, RefusesPlacesBeyondAllPixels) {
    const Font font = FontOf(6, {"#"});
    PixelBuffer pixels(6, 2);
    constexpr float last = 2147483520, none = std::numeric_limits<float>::quiet_NaN(); // of 32 bits
    const auto draw = [&](float x, float y, std::int16_t magnification) {
        DrawLetters({font, magnification}, "A", {pixels, x, y}, false);
    };
    EXPECT_NO_THROW((draw(last, 0, 1), draw(-2147483648.0F, 0, 1)));
    for (const auto& [x, y, magnification] :
         {std::tuple(2147483648.0F, 0.0F, 1), {last, 0, 100}, {0, last, 200}, {none, 0, 1}})
        EXPECT_THROW(draw(x, y, static_cast<std::int16_t>(magnification)), RuntimeError) << x << ' ' << y;
}

} // namespace
} // namespace qrtVistrelClasses4
