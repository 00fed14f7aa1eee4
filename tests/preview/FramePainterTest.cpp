#include "preview/FramePainter.h"

#include "displays/DisplayRecord.h"
#include "fonts/FontTesting.h"
#include "media/BmpTesting.h"
#include "playfile/FrameTypes.h"
#include "preview/FrameSheet.h"

namespace qrtVistrelClasses4 {
namespace {

using enum NEW_FRAME_TYPES;

/// A line in a font that is a file, or has a number.
LineRecord line(const std::string& text, const std::string& font = "tiny") {
    const bool isNumber = font.size() == 1;
    LineRecord line;
    line.CurrentLineText = text;
    line.LineFontSize = isNumber ? static_cast<std::int16_t>(font[0] - '0') : std::int16_t{12};
    line.LineCustomFont = isNumber ? "" : font;
    return line;
}
LineRecord inverse(LineRecord line) {
    line.Inverse = true;
    return line;
}
LineRecord scrolling(LineRecord line) {
    line.Scrolling = true;
    return line;
}

FrameRecord frame(NEW_FRAME_TYPES type, const std::vector<LineRecord>& lines, const std::string& file = "") {
    FrameRecord frame;
    frame.FrameType = static_cast<std::int16_t>(type);
    (type == FRAME_CMD ? frame.commandfile : frame.PicturefileName) = file;
    frame.lines.resize(static_cast<std::int32_t>(lines.size()));
    std::ranges::copy(lines, frame.lines.begin());
    return frame;
}
FrameRecord overlay(FrameRecord frame) {
    frame.OverlayFrame = 1;
    return frame;
}

OneBasedArray<FrameRecord> playfile(const std::vector<FrameRecord>& frames) {
    OneBasedArray<FrameRecord> all(static_cast<std::int32_t>(frames.size()));
    std::ranges::copy(frames, all.begin());
    return all;
}

/// Rows of a sign: "#" for a lit dot, "+" for one at half its brightness or less, "." for a dark one.
Texts rowsOf(const Raster& dots) {
    Texts rows;
    for (std::int32_t y = 0; y < dots.height(); ++y) {
        rows.emplace_back();
        for (const Color dot : dots.row(y))
            rows.back() += dot == 0                                                  ? '.'
                           : std::max({RedOf(dot), GreenOf(dot), BlueOf(dot)}) < 128 ? '+'
                                                                                     : '#';
    }
    return rows;
}

class Frames : public HostTest {
protected:
    Frames() {
        host_.machine.time = {2026, 11, 21, 0, 11, 0, 6};
        Font tiny = FontOf(4, {"#.", "##", "#."});
        AddLetter(tiny, '0', {"##", "##", "##"});
        AddLetter(tiny, '1', {".#", ".#", ".#"});
        files().put(host_.inLibrary("CustomFonts/tiny"), HeaderFontBytes(tiny));
        files().put(host_.inLibrary("CustomFonts/wide"), HeaderFontBytes(FontOf(4, {"###", "..#"})));
        putStandard("Fstnd08.cmd", 6, 'A', {"#", ".", ".", ".", ".", ".", ".", "#"});
        putStandard("Fstnd5x8.cmd", 5, 'x', Texts(8, "#"));
        const std::string white(3, '\xff'), black(3, '\0'), half(3, '\x64');
        files().put(picture_, Bmp(24, half + black + black + black + white + white + black + black));
        files().put(bad_, "BM, and no more");
    }
    void putStandard(const std::string& name, std::int16_t width, char letter, const Texts& rows) {
        Font font = ParseFont({}, width, 8).value();
        AddLetter(font, letter, rows);
        files().put(host_.inLibrary("bin/" + name), SizedFontBytes(font));
    }
    /// The rows of the last of the frames.
    Texts draw(const std::vector<FrameRecord>& frames, DotSize size, const SignLook& sign = {}) {
        Texts rows;
        FramePainter painter(sign);
        const auto last = static_cast<std::int32_t>(frames.size());
        painter.draw(playfile(frames), last, last, size, [&](std::int32_t, const PixelBuffer& dots) {
            rows = rowsOf(dots);
            pixels_.assign(dots.row(0).begin(), dots.row(0).end());
        });
        return rows;
    }

    const std::string picture_ = host_.inLibrary("dots.bmp"), bad_ = host_.inLibrary("x.bmp");
    std::vector<Color> pixels_; ///< Of the first row that was drawn last.
};

TEST_F(Frames, AreDrawnAsASignShowsThem) {
    const FrameRecord lines =
        frame(FRAME_TEXT, {line("A", "wide"), line(""), line("?|hm|"), inverse(line("A")),
                           scrolling(line("AAAAAA")), line("A", "0"), line("A")});
    const FrameRecord one = overlay(frame(FRAME_TEXT, {line("1")}));
    const FrameRecord below = overlay(frame(FRAME_TEXT, {line(""), line("A")}));
    const Texts box{"+++++", "+...+", "+.+.+", "+.+.+", "+.+.+", "+.+.+",
                    "+.+.+", "+.+.+", "+.+.+", "+.+.+", "+...+", "+++++"};
    const Texts rowsOfPicture{"##.", "+..", "..."};
    const std::string x = host_.inLibrary("x");
    const struct {
        const char* why;
        std::vector<FrameRecord> frames;
        Texts rows;
    } cases[] = {
        {"lines stacked in their fonts, codes and unknown letters, and one that is too long",
         {lines},
         {".###......", "...#......", "..........", "..........", "..........", ".####.#.#.",
          ".####.#.#.", ".####.#.#.", "#.########", "#..#######", "#.########", ".#.#.#.#.#",
          ".#########", ".#.#.#.#.#", ".#........", "..........", "..........", "..........",
          "..........", "..........", "..........", ".#........", ".#........"}},
        {"nothing at all", {frame(FRAME_BLANK, {line("A")})}, {"...", "..."}},
        {"overlays over the frames before",
         {frame(FRAME_TEXT, {line("A")}), one, below},
         {".##", ".##", ".##", ".#."}},
        {"a picture with text", {frame(FRAME_GRAPHICTEXT, {line("A")}, picture_)}, {"##.", "+##", ".#."}},
        {"a picture alone", {frame(FRAME_GRAPHIC, {line("A")}, picture_)}, rowsOfPicture},
        {"a picture that is cut off", {frame(FRAME_GRAPHIC, {}, picture_)}, {"#", "+"}},
        {"a text alone", {frame(FRAME_TEXT, {line("A")}, picture_)}, {".#.", ".##", ".#."}},
        {"an animation", {frame(FRAME_GRAPHIC, {}, x)}, box},
        {"a command file", {frame(FRAME_CMD, {}, x)}, box},
        {"a picture that cannot be read", {frame(FRAME_GRAPHIC, {}, bad_)}, box},
    };
    for (const auto& [why, frames, rows] : cases)
        EXPECT_EQ(
            draw(frames, {static_cast<std::int32_t>(rows[0].size()), static_cast<std::int32_t>(rows.size())}),
            rows)
            << why;
}

TEST_F(Frames, HaveTheColoursOfTheSign) {
    DisplayRecord sign;
    sign.DefaultColor = "gREEN";
    sign.DisplayType = 20;
    sign.DisplayWidth = 96;
    EXPECT_EQ(SignLookOf(sign).size, std::nullopt);
    sign.DisplayHeight = 16;
    EXPECT_EQ(SignLookOf(sign).size, (DotSize{96, 16}));
    EXPECT_EQ(SignLookOf(sign).type, 20);
    FrameRecord shown = frame(FRAME_GRAPHICTEXT, {line("", "wide"), line("1")}, picture_);
    shown.WinBackColor = 0x1000040;
    const Color green = Rgb(60, 255, 70);
    for (const bool isColor : {false, true}) {
        sign.IsDisplayColor = isColor;
        draw({shown}, {3, 1}, SignLookOf(sign));
        EXPECT_EQ(pixels_, isColor ? (std::vector<Color>{0xffffff, 0xffffff, 0x40})
                                   : (std::vector<Color>{green, green, 0}));
    }
    shown.WinBackColor = -1;
    draw({frame(FRAME_TEXT, {line("1")})}, {3, 1}, SignLookOf(sign));
    EXPECT_EQ(pixels_, (std::vector<Color>{0, 0, green})) << "a colour of the system is dark";
    sign.DefaultColor = "Puce";
    EXPECT_EQ(SignLookOf(sign).color, kAmber);
}

TEST_F(Frames, NeedASignThatShowsAllThatStandsStill) {
    const std::string forty(40, 'A');
    const struct {
        const char* why;
        std::vector<FrameRecord> frames;
        DotSize size;
    } cases[] = {
        {"the smallest", {frame(FRAME_TEXT, {line("A")})}, {48, 16}},
        {"a long line, in whole modules", {frame(FRAME_TEXT, {line(forty)})}, {88, 16}},
        {"a line that scrolls", {frame(FRAME_TEXT, {scrolling(line(forty))})}, {48, 16}},
        {"lines up to the last one with text",
         {frame(FRAME_TEXT, {line("", "1"), line("", "1"), line("A", "1"), line("", "1")})},
         {48, 24}},
        {"a picture", {frame(FRAME_GRAPHIC, {}, picture_)}, {48, 16}},
        {"the name of a picture that cannot be read",
         {frame(FRAME_GRAPHIC, {}, host_.inLibrary(std::string(60, 'x')))},
         {72, 16}},
        {"the largest",
         {frame(FRAME_TEXT, std::vector<LineRecord>(99, line(std::string(9999, 'A'))))},
         {512, 128}},
    };
    for (const auto& [why, frames, size] : cases)
        EXPECT_EQ(FramePainter({}).sizeFor(playfile(frames)), size) << why;
}

TEST_F(Frames, ReportWhatCouldNotBeShown) {
    FramePainter painter({});
    const auto frames = playfile({frame(FRAME_GRAPHICTEXT, {line("A", "nowhere")}, bad_)});
    for (int time = 0; time < 2; ++time)
        painter.draw(frames, 1, 1, {8, 8}, [](std::int32_t, const PixelBuffer&) {});
    const auto faults = painter.takeFaults();
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(std::pair(faults[0].what, faults[0].name), std::pair(PreviewFault::What::picture, bad_));
    EXPECT_EQ(std::pair(faults[1].what, faults[1].name),
              std::pair(PreviewFault::What::customFont, std::string("nowhere")));
}

TEST_F(Frames, BecomeASheetOfLeds) {
    const auto frames = playfile({frame(FRAME_TEXT, {line("A")}), frame(FRAME_TEXT, {line("1")})});
    FramePainter painter({});
    FrameSheet sheet(2, {3, 3}, 8);
    PixelBuffer picture = sheet.empty();
    EXPECT_EQ(picture.size(), (DotSize{104, 80}));
    painter.draw(frames, 1, 2, {3, 3}, [&](std::int32_t, const PixelBuffer& dots) {
        sheet.add("AA", dots, painter.captionFont(), picture);
    });
    Raster middles(6, 3); // of the dots of both frames
    for (std::int32_t y = 0; y < 3; ++y)
        for (std::int32_t x = 0; x < 6; ++x) {
            const auto left = static_cast<std::size_t>(12 + x / 3 * 46 + 9 + x % 3 * 8);
            const Color middle = picture.row(34 + 9 + y * 8)[left];
            middles.fill(x, y, 1, 1, RedOf(middle) > 200 ? kAmber : 0);
        }
    EXPECT_EQ(rowsOf(middles), (Texts{".#...#", ".##..#", ".#...#"}));
    EXPECT_GT(RedOf(picture.row(12)[12]), 100) << "the caption";
}

} // namespace
} // namespace qrtVistrelClasses4
