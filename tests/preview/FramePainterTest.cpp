#include <qrtVistrelClasses4/FramePainter.h>

#include "fonts/FontTesting.h"
#include "media/BmpFile.h"
#include "media/BmpTesting.h"
#include "platform/Path.h"
#include "preview/PictureMember.h"
#include "preview/PreviewTesting.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/FramePicture.h>
#include <qrtVistrelClasses4/FrameSheet.h>
#include <qrtVistrelClasses4/FrameTypes.h>
#include <qrtVistrelClasses4/LedPainter.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(LedPainter, ShowsLitDotsDarkDotsAndGaps) {
    Raster dots(2, 1);
    dots.row(0)[1] = Rgb(255, 0, 0);
    const std::tuple<int, std::int32_t, std::string> rows[] = {
        {2, 1, "oooooooo"},         {2, 2, "oooo##oo"},         {2, 3, "oooo##oo"},
        {5, 2, "oooooooooooooooo"}, {5, 3, "ooo.....o###oooo"}, {5, 5, "ooo.ooo.#####ooo"}};
    for (const auto& [scale, y, wanted] : rows) {
        LedPainter painter(scale);
        Raster strip(static_cast<std::int32_t>(painter.sizeOf(2)), 1);
        painter.draw(dots, strip, 0, -y);
        std::string looks; // "o" is also the rim and the glow of a lit dot
        for (const Color pixel : strip.row(0))
            looks += RedOf(pixel) >= 128 ? '#' : RedOf(pixel) >= 36 ? 'o' : '.';
        EXPECT_EQ(looks, wanted) << scale << ' ' << y;
    }
}

using enum NEW_FRAME_TYPES;
using Lines = std::vector<LineRecord>;

template <class T>
OneBasedArray<T> listOf(const std::vector<T>& elements) {
    OneBasedArray<T> list(static_cast<std::int32_t>(elements.size()));
    std::ranges::copy(elements, list.begin());
    return list;
}

FrameRecord frame(NEW_FRAME_TYPES type, const Lines& lines, const std::string& file = "",
                  bool isOverlay = false) {
    FrameRecord frame;
    frame.FrameType = static_cast<std::int16_t>(type);
    frame.PicturefileName = frame.commandfile = file;
    frame.lines = listOf(lines);
    frame.OverlayFrame = isOverlay ? 1 : 0;
    return frame;
}
FrameRecord text(const Lines& lines) { return frame(FRAME_TEXT, lines); }

DotSize sizeOf(const std::string& rows) {
    const std::size_t width = rows.find(' ');
    return {static_cast<std::int32_t>(width), static_cast<std::int32_t>((rows.size() + 1) / (width + 1))};
}

class Frames : public HostTest {
protected:
    Frames() {
        host_.machine.time = {2026, 11, 21, 0, 11, 0, 6};
        Font tiny = FontOf(4, {"#.", "##", "#."});
        AddLetter(tiny, '0', {"##", "##", "##"});
        AddLetter(tiny, '1', {".#", ".#", ".#"});
        AddLetter(tiny, '-', {"#", "#", "."});
        AddLetter(tiny, ' ', {"..", "..", ".."});
        Font standard = ParseFont({}, 6, 8).value();
        AddLetter(standard, 'A', {"#", ".", ".", ".", ".", ".", ".", "#"});
        put("tiny", HeaderFontBytes(tiny));
        put("wide", HeaderFontBytes(FontOf(4, {"###", "..#"})));
        files().put(host_.inLibrary("bin/Fstnd08.cmd"), SizedFontBytes(standard));
    }
    std::string put(const std::string& name, const std::string& content) {
        files().put(host_.inLibrary("CustomFonts/" + name), content);
        return host_.inLibrary("CustomFonts/" + name);
    }
    /// The last of the frames.
    PixelBuffer draw(const std::vector<FrameRecord>& frames, DotSize size, const SignLook& sign = {}) {
        PixelBuffer last(0, 0);
        const auto number = static_cast<std::int32_t>(frames.size());
        CommandTable commands = BuiltInCommands();
        commands.set("~", "\1");
        FramePainter painter(sign, commands);
        painter.draw(listOf(frames), number, number, size,
                     [&](std::int32_t, const PixelBuffer& dots) { last = dots; });
        faults_.clear();
        for (const PreviewFault& fault : painter.takeFaults())
            faults_ += (faults_.empty() ? "" : ", ") + std::to_string(fault.frame) + "." +
                       std::to_string(fault.line) + " " +
                       (fault.what == PreviewFault::What::cutText ? "cut" : fault.name);
        return last;
    }

    /// Two rows of three pixels, from 0 for black to 9 for white.
    std::string putPicture(const std::string& name, const std::string& pixels) {
        std::string bytes;
        for (const char pixel : pixels.substr(3) + "0" + pixels.substr(0, 3) + "0") // the lower row first
            bytes += std::string(3, static_cast<char>((pixel - '0') * 255 / 9));
        return put(name, Bmp(24, bytes));
    }

    const std::string picture_ = putPicture("dots.bmp", "990600");
    const std::string bad_ = put("x.bmp", "BM, and no more");
    std::string faults_; ///< Those of `draw`: "FRAME.LINE NAME".
};

TEST_F(Frames, AreDrawnAsASignShowsThem) {
    const std::string box = "+++++ +...+ +...+ +...+ +.+.+ +.+.+ +..++ +.+.+ +.+.+ +...+ +...+ +++++";
    const std::string stacked =
        ".###...... ...#...... .......... .......... .......... .####.#.#. .####.#.#. "
        ".####.#.#. #.######## #..####### #.######## .#.#.#.#.# .######### .#.#.#.#.# "
        ".#........ .......... .......... .......... .......... .......... .......... "
        ".#........ .#........";
    const Lines lines{line("A", "wide"),
                      line(""),
                      line("?|hm|"),
                      line("A", "tiny", &LineRecord::Inverse),
                      line("AAAAAA", "tiny", &LineRecord::Scrolling),
                      line("A", "0"),
                      line("A")};
    FrameRecord one = text({line("1")});
    one.PrefixCode = 15;
    const FrameRecord below = frame(FRAME_TEXT, {line(""), line("A")}, "", true);
    const struct {
        const char* why;
        std::vector<FrameRecord> frames;
        std::string rows, faults = {};
    } cases[] = {
        {"lines in their fonts, with codes and unknown letters", {text(lines)}, stacked, "1.3 ?, 1.7 cut"},
        {"an inverse line with a free row", {text({line("-", "tiny", &LineRecord::Inverse)})}, "### #.# #.#"},
        {"a text that is cut", {text({line("AA")})}, ".#. .## .#.", "1.1 cut"},
        {"one below the sign",
         {text({line("A "), line(" "), line("A"), line("A")})},
         ".#. .## .#.",
         "1.3 cut"},
        {"a command that a user added", {text({line("~")})}, "..# ..# ..#"},
        {"nothing at all", {frame(FRAME_BLANK, {line("A")})}, "... ..."},
        {"overlays over the frames before", {text({line("A")}), one, below}, ".## .## .## .#.", "3.2 cut"},
        {"a picture with text", {frame(FRAME_GRAPHICTEXT, {line("A")}, picture_)}, "##. ### .#."},
        {"a picture alone", {frame(FRAME_GRAPHIC, {line("A")}, picture_)}, "##. #.. ..."},
        {"a text alone", {frame(FRAME_TEXT, {line("A")}, picture_)}, ".#. .## .#."},
        {"one brightness", {frame(FRAME_GRAPHIC, {}, putPicture("grey.bmp", "555555"))}, "#.# .#."},
        {"two low ones", {frame(FRAME_GRAPHIC, {}, putPicture("dark.bmp", "121212"))}, ".#. #.#"},
        {"many, cut off", {frame(FRAME_GRAPHIC, {}, putPicture("most.bmp", "998705"))}, "## #."},
        {"an animation", {frame(FRAME_GRAPHIC, {}, put("x", "RIFF"))}, box},
        {"a command file", {frame(FRAME_CMD, {}, "x")}, box},
        {"a missing picture", {frame(FRAME_GRAPHIC, {}, "x")}, box, "1.0 x"},
        {"a picture that cannot be read", {frame(FRAME_GRAPHIC, {}, bad_)}, box, "1.0 " + bad_},
    };
    for (const auto& [why, frames, rows, faults] : cases)
        EXPECT_EQ(rowsOf(draw(frames, sizeOf(rows))) + "; " + faults_, rows + "; " + faults) << why;
    EXPECT_FALSE(files().hasEntry(host_.inLibrary("db"))) << "no command table is saved";
}

TEST_F(Frames, HaveTheColoursOfTheSign) {
    FrameRecord shown = frame(FRAME_GRAPHIC, {}, picture_);
    DisplayRecord sign;
    sign.DisplayWidth = 3;
    const std::tuple<const char*, bool, std::int32_t, Color, Color> cases[] = {
        {"gREEN", false, 0x40, Rgb(60, 255, 70), 0},
        {"Puce", false, 0x40, kAmber, 0},
        {"Red", true, 0x40, 0xffffff, 0x40},
        {"Red", true, -1, 0xffffff, 0}, // a colour of the system
    };
    for (const auto& [name, isColor, background, lit, dark] : cases) {
        sign.DefaultColor = name;
        sign.IsDisplayColor = isColor;
        shown.WinBackColor = background;
        const PixelBuffer dots = draw({shown}, {3, 1}, SignLookOf(sign));
        EXPECT_EQ(std::pair(dots.row(0)[0], dots.row(0)[2]), std::pair(lit, dark)) << name;
    }
    EXPECT_EQ(SignLookOf(sign).size, std::nullopt) << "without a height";
}

TEST_F(Frames, NeedASignThatShowsAllThatDoesNotScroll) {
    const std::string forty(40, 'A');
    const std::tuple<const char*, FrameRecord, DotSize> cases[] = {
        {"a long line, in whole modules", text({line(forty)}), {88, 16}},
        {"a line that scrolls", text({line(forty, "tiny", &LineRecord::Scrolling)}), {48, 16}},
        {"the last line with text",
         text({line("", "1"), line("", "1"), line("A", "1"), line("", "1")}),
         {48, 24}},
        {"the name in a box", frame(FRAME_CMD, {}, std::string(60, 'x')), {312, 16}},
        {"the largest", text(Lines(99, line(std::string(999, 'A')))), {512, 128}},
    };
    for (const auto& [why, shown, size] : cases)
        EXPECT_EQ(FramePainter({}).sizeFor(listOf<FrameRecord>({shown, text({})})), size) << why;
}

TEST_F(Frames, AreSavedAsPictures) {
    const std::string path = host_.inLibrary("frame.bmp");
    const FrameRecord over = frame(FRAME_TEXT, {line("1")}, "", true);
    const FrameRecord shown = frame(FRAME_GRAPHIC, {}, "elsewhere/dots.bmp");
    const Playfile playfile{listOf<FrameRecord>({text({line("?")}), shown, over}), picture_, false};
    SignLook sign;
    const auto save = [&](DotSize size, int scale, std::int32_t number = 3) {
        sign.size = size;
        return SavePictureOfFrame(playfile, number, sign, path, scale);
    };
    const auto saved = save({96, 40}, 12);
    EXPECT_TRUE(saved.isWritten());
    EXPECT_TRUE(saved.faults.empty()) << "the picture was found beside the playfile";
    const auto file = [&] { return ParseBmp(files().read(path).value().text()); };
    LedPainter leds(12);
    const PixelBuffer dots = draw({frame(FRAME_GRAPHIC, {}, picture_), over}, {96, 40});
    Raster wanted(static_cast<std::int32_t>(leds.sizeOf(96)), static_cast<std::int32_t>(leds.sizeOf(40)));
    leds.draw(dots, wanted, 0, 0);
    EXPECT_EQ(file(), wanted);

    const std::tuple<const char*, DotSize, int, std::int32_t, int> refused[] = {
        {"no such frame", {9, 9}, 1, 4, 9},
        {"nor one before the first", {9, 9}, 1, 0, 9},
        {"no pixels", {9, 9}, 0, 1, 5},
        {"too many a dot", {9, 9}, 65, 1, 5},
        {"too many in all", {INT16_MAX, INT16_MAX}, 1, 1, 5},
    };
    for (const auto& [why, size, scale, number, error] : refused)
        EXPECT_EQ(save(size, scale, number).error.value().number(), error) << why;
    files().observer = [](const FileOperation& operation) {
        return operation.kind == FileOperation::write ? SystemError::diskFull : SystemError::none;
    };
    EXPECT_EQ(save({9, 9}, 1).error.value().number(), 61);
    files().observer = {};
    EXPECT_EQ(file(), wanted) << "what was there stays";

    sign.size.reset();
    EXPECT_TRUE(SavePictureOfFrame(playfile, 1, sign, path, 1).faults.at(0).frame == 1);
    EXPECT_EQ(file()->size(), (DotSize{130, 66})) << "as large as the preferences say";
    FrameInfoClass member;
    member.Adopt(playfile);
    EXPECT_TRUE(SavePictureAsMember(member, 1, path, 1));
    const std::vector<ErrorReport> reports = std::exchange(host_.reports.all, {});
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports[0].error.description(), "Frame 1, line 1: the font lacks ?");
    EXPECT_EQ(member.LastErrorNumber(), 0);
}

TEST_F(Frames, BecomeASheetOfLedsInStrips) {
    const auto frames = listOf<FrameRecord>({text({}), text({}), text({}), text({line("A")})});
    FramePainter painter({});
    FrameSheet sheet(4, {3, 3}, 64);
    Raster picture(822, 1036);
    EXPECT_EQ(sheet.width() * 1000 + sheet.height(), 823036);
    std::int32_t y = 0;
    const auto copyRows = [&](const Raster& strip) {
        EXPECT_LT(strip.height(), 100);
        for (std::int32_t row = 0; row < strip.height(); ++row)
            std::ranges::copy(strip.row(row), picture.row(y++).begin());
    };
    sheet.draw(
        frames, painter, [](std::int32_t number) { return number == 4 ? "AA" : ""; }, copyRows);
    EXPECT_EQ(y, 1036);
    std::string middles; // of the dots of the last frame, which is alone in the second row
    for (y = 524 + 242 + 33 + 32; y < 524 + 242 + 33 + 192; y += 64)
        for (std::size_t x = 12 + 33 + 32; x < 12 + 33 + 192; x += 64)
            middles += RedOf(picture.row(y)[x]) > 200 ? '#' : '.';
    EXPECT_EQ(middles, ".#..##.#.");
    EXPECT_GT(RedOf(picture.row(524)[12 + 22]), 100) << "the caption";
}

} // namespace
} // namespace qrtVistrelClasses4
