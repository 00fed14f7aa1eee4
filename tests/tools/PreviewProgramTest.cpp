// Previews, as the program's user meets them.
#include "Program.h"

#include "playfile/FrameInfoClass.h"
#include "tools/FontPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <lodepng.h>

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Line {
    std::string text;
    std::string font = "tiny"; ///< A file, or a number.
    bool inverse = false;
    bool scrolling = false;
};

struct Frame {
    std::vector<Line> lines;
    NEW_FRAME_TYPES type = NEW_FRAME_TYPES::FRAME_TEXT;
    bool overlay = false;
    std::string file = {};
};

void addLine(FrameInfoClass& playfile, std::size_t number, const Line& line) {
    playfile.CurrentLineNumber(static_cast<std::int16_t>(number));
    playfile.CurrentLineText(line.text);
    playfile.Inverse(line.inverse);
    playfile.Scrolling(line.scrolling);
    const bool isNumber = line.font.find_first_not_of("-0123456789") == std::string::npos;
    playfile.LineFontSize(isNumber ? static_cast<std::int16_t>(std::stoi(line.font)) : std::int16_t{12});
    playfile.LineCustomFont(isNumber ? "" : line.font);
}

/// A folder with fonts of which every dot is known, and the playfile "signs".
class Preview : public testing::Test {
protected:
    Preview() {
        make("tiny", "size 4x3\n65 A\n#.\n##\n#.\n48 0\n##\n##\n##\n49 1\n.#\n.#\n.#\n", FontLayout::header);
        make("wide", "size 4x2\n65 A\n###\n..#\n", FontLayout::header);
        make("bin/Fstnd08.cmd", "size 6x8\n65 A\n#\n.\n.\n.\n.\n.\n.\n#\n", FontLayout::sized);
        make("bin/Fstnd5x8.cmd", "size 5x8\n120 x\n#\n#\n#\n#\n#\n#\n#\n#\n", FontLayout::sized);
    }

    void write(const std::vector<Frame>& frames) const {
        FrameInfoClass playfile;
        playfile.TotalFrames(static_cast<std::int16_t>(frames.size()));
        for (std::size_t i = 0; i < frames.size(); ++i) {
            const Frame& frame = frames[i];
            playfile.CurrentFrame(static_cast<std::int16_t>(i + 1));
            playfile.FrameName("F" + std::to_string(i + 1));
            playfile.FrameType(StoredFrameType(frame.type));
            playfile.OverlayFrame(frame.overlay);
            playfile.PicturefileName(frame.type == NEW_FRAME_TYPES::FRAME_CMD ? "" : frame.file);
            playfile.commandfile(frame.type == NEW_FRAME_TYPES::FRAME_CMD ? frame.file : "");
            playfile.TotalLinesAllowed(static_cast<std::int16_t>(frame.lines.size()));
            for (std::size_t line = 0; line < frame.lines.size(); ++line)
                addLine(playfile, line + 1, frame.lines[line]);
        }
        ASSERT_TRUE(playfile.WritePlayfileToDisk(vistrel.inHome("signs")));
    }

    std::string shown(const std::string& options) const {
        return vistrel.run("preview signs " + options).out;
    }

    const Program vistrel;

private:
    void make(const std::string& file, const std::string& source, FontLayout layout) const {
        ErrorLines errors;
        const Font font = FontOf(ReadFontPictures(source, errors).value(), layout, errors).value();
        std::ofstream(vistrel.inHome(file), std::ios::binary)
            << (layout == FontLayout::header ? HeaderFontBytes(font) : SizedFontBytes(font));
    }
};

TEST_F(Preview, StacksLinesInTheirFonts) {
    const struct {
        const char* why;
        std::vector<Line> lines;
        const char *size, *picture;
    } cases[] = {
        {"no line has anything", {{""}}, "3x2", "...\n...\n"},
        {"letters start one dot right", {{"AA"}}, "6x3", ".#.#..\n.####.\n.#.#..\n"},
        {"each in its own font, an empty one in between",
         {{"A", "wide"}, {""}, {"A"}},
         "4x8",
         ".###\n...#\n....\n....\n....\n.#..\n.##.\n.#..\n"},
        {"an inverse line is lit from side to side",
         {{"A", "tiny", true}, {"A"}},
         "4x6",
         "#.##\n#..#\n#.##\n.#..\n.##.\n.#..\n"},
        {"what scrolls is shown from its start",
         {{"AAAA", "tiny", false, true}},
         "4x3",
         ".#.#\n.###\n.#.#\n"},
        {"lines below the sign", {{"A"}, {"A"}}, "3x4", ".#.\n.##\n.#.\n.#.\n"},
        {"codes show what they stand for, letters without a glyph nothing",
         {{"?|hm|"}},
         "10x3",
         ".####.#.#.\n.####.#.#.\n.####.#.#.\n"},
        {"a numbered font", {{"A", "1"}}, "3x8", ".#.\n...\n...\n...\n...\n...\n...\n.#.\n"},
    };
    for (const auto& [why, lines, size, picture] : cases) {
        SCOPED_TRACE(why);
        write({{lines}});
        const Outcome outcome =
            vistrel.run("preview signs --at '2026-11-21 00:11' --size " + std::string(size));
        EXPECT_EQ(outcome.out, picture);
        EXPECT_THAT(outcome.err, IsEmpty());
    }
}

TEST_F(Preview, TakesFont0ForOneThatIsMissingAndSaysSo) {
    const std::string inFont0 = ".#.\n...\n...\n...\n...\n...\n...\n.#.\n";
    for (const auto& [font, message] :
         std::vector<std::pair<std::string, std::string>>{{"nowhere.cff", "Could not find nowhere.cff"},
                                                          {"12", "a line has a custom font, but names none"},
                                                          {"FSTND08.cmd", "FSTND08.cmd NOT FOUND"},
                                                          {"-1", "there is no font -1"},
                                                          {"9", "24x24.cmd"}}) {
        SCOPED_TRACE(font);
        std::filesystem::remove(vistrel.inHome("bin/24x24.cmd"));
        write({{{{"A", font}}}});
        const Outcome outcome = vistrel.run("preview signs --size 3x8");
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.out, inFont0);
        EXPECT_THAT(outcome.err, HasSubstr(message));
    }
}

TEST_F(Preview, DrawsOverlaysOverTheFramesBefore) {
    write({{{{"A"}}},
           {{{"1"}}, NEW_FRAME_TYPES::FRAME_TEXT, true},
           {{{""}, {"1"}}, NEW_FRAME_TYPES::FRAME_TEXT, true},
           {{{"1"}}},
           {{{"A"}}, NEW_FRAME_TYPES::FRAME_BLANK}});
    EXPECT_EQ(shown("--size 3x4"), ".#.\n.##\n.#.\n...\n");
    EXPECT_EQ(shown("--size 3x4 --frame 3"), ".##\n.##\n.##\n..#\n");
    EXPECT_EQ(shown("--size 3x1 --sheet"), "1  F1\n.#.\n2  F2\n.##\n3  F3\n.##\n4  F4\n..#\n5  F5\n...\n");
}

TEST_F(Preview, DrawsPicturesThatItFindsAndBoxesForOtherFiles) {
    // Two rows of two pixels: red, white; a middling green, black.
    std::ofstream(vistrel.inHome("dots.bmp"), std::ios::binary)
        << "BM" + std::string(8, '\0') + std::string("\x36\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\x18\0", 20) +
               std::string(24, '\0') +
               std::string("\0\x64\0\0\0\0\0\0"
                           "\0\0\xff\xff\xff\xff\0\0",
                           16);
    const std::string box =
        "+++++\n+...+\n+.+.+\n+.+.+\n+.+.+\n+.+.+\n+.+.+\n+.+.+\n+.+.+\n+.+.+\n+...+\n+++++\n";
    using enum NEW_FRAME_TYPES;
    write({{{}, FRAME_GRAPHIC, false, "Z:\\gone\\dots.bmp"},
           {{{"A"}}, FRAME_GRAPHICTEXT, false, "dots.bmp"},
           {{{"A"}}, FRAME_GRAPHIC, false, "dots.bmp"},
           {{}, FRAME_GRAPHIC, false, "C:\\x.avi"},
           {{}, FRAME_CMD, false, "x"},
           {{{"A"}}, FRAME_TEXT, false, "dots.bmp"},
           {{}, FRAME_GRAPHIC, false, "x.bmp"}});
    EXPECT_EQ(shown("--size 3x3"), "##.\n+..\n...\n") << "found beside the playfile";
    EXPECT_EQ(shown("--size 3x3 --frame 2"), "##.\n+##\n.#.\n") << "text over it";
    EXPECT_EQ(shown("--size 1x2 --frame 3"), "#\n+\n") << "without text, cut off by the sign";
    EXPECT_EQ(shown("--size 5x12 --frame 4"), box);
    EXPECT_EQ(shown("--size 5x12 --frame 5"), box);
    EXPECT_EQ(shown("--size 3x3 --frame 6"), ".#.\n.##\n.#.\n") << "only text";
    std::ofstream(vistrel.inHome("x.bmp")) << "BM, and no more";
    const Outcome unreadable = vistrel.run("preview signs --size 5x12 --frame 7");
    EXPECT_EQ(unreadable.exitCode, 1);
    EXPECT_THAT(unreadable.err, HasSubstr("signs: x.bmp cannot be drawn"));
}

/// Width and height of a plain picture, such as "48x16".
std::string sizeOf(const std::string& picture) {
    return std::to_string(picture.find('\n')) + "x" + std::to_string(std::ranges::count(picture, '\n'));
}

TEST_F(Preview, HasASignThatTakesAllThatStandsStill) {
    const std::string twenty(20, 'A');
    const struct {
        const char* why;
        std::vector<Line> lines;
        const char *options, *size;
    } cases[] = {
        {"the smallest", {{"A"}}, "", "48x16"},
        {"whole modules for a line", {{twenty + twenty}}, "", "88x16"},
        {"what scrolls may be longer", {{twenty + twenty, "tiny", false, true}}, "", "48x16"},
        {"as many lines", {{"", "1"}, {"", "1"}, {"A", "1"}, {"", "1"}}, "", "48x24"},
        {"the largest", std::vector<Line>(99, {std::string(9999, 'A')}), "", "512x128"},
        {"that of a sign in the list", {{"A"}}, "--sign gate", "96x16"},
        {"the typed one before all", {{"A"}}, "--sign Gate --size 7X5", "7x5"},
    };
    for (const auto& [why, lines, options, size] : cases) {
        write({{lines}});
        EXPECT_EQ(sizeOf(shown(options)), size) << why;
    }
}

/// A picture in a file, read by another library than the one that wrote it.
struct Decoded {
    explicit Decoded(const std::string& path) {
        EXPECT_EQ(lodepng::decode(reds, width, height, path, LCT_RGB), 0U);
    }
    /// What the middles of 3 x 3 dots of 8 pixels look like, the first being at `left`, `top`.
    std::string dotsAt(unsigned left, unsigned top) const {
        std::string dots;
        for (unsigned y = top; y < top + 24; y += 8) {
            for (unsigned x = left; x < left + 24; x += 8)
                dots += reds.at((y * width + x) * std::size_t{3}) > 200 ? '#' : '.';
            dots += '\n';
        }
        return dots;
    }
    std::vector<unsigned char> reds; ///< Of pixels, before their greens and blues.
    unsigned width = 0;
    unsigned height = 0;
};

TEST_F(Preview, BecomesAPictureInAFile) {
    write({{{{"A"}}}, {{{"1"}}}});
    const std::string options = "--size 3x3 --scale 8 --out p.png ";
    EXPECT_EQ(shown(options), "p.png: frame 1, 3 x 3 dots, 34 x 34 pixels\n");
    const Decoded frame(vistrel.inHome("p.png"));
    EXPECT_EQ(frame.width, 34U);
    EXPECT_EQ(frame.height, 34U);
    EXPECT_EQ(frame.dotsAt(9, 9), ".#.\n.##\n.#.\n");

    EXPECT_EQ(shown(options + "--sheet"), "p.png: 2 frames, 3 x 3 dots, 104 x 80 pixels\n");
    const Decoded sheet(vistrel.inHome("p.png"));
    EXPECT_EQ(sheet.width, 104U);
    EXPECT_EQ(sheet.height, 80U);
    EXPECT_EQ(sheet.dotsAt(12 + 9, 34 + 9), ".#.\n.##\n.#.\n");
    EXPECT_EQ(sheet.dotsAt(12 + 46 + 9, 34 + 9), "..#\n..#\n..#\n");
}

TEST_F(Preview, RefusesWhatCannotBeDrawn) {
    write({{{{"A"}}}});
    const struct {
        const char *options, *reason;
        int exitCode;
    } cases[] = {
        {"--size 0x5", "--size", 2},
        {"--size 5x32768", "--size", 2},
        {"--size 5", "--size", 2},
        {"--size 5x5x5", "--size", 2},
        {"--size ' 5x5'", "--size", 2},
        {"--size 5x-5", "--size", 2},
        {"--size 99999999999x5", "--size", 2},
        {"--out p.png --scale 0", "--scale", 2},
        {"--out p.png --scale 65", "--scale", 2},
        {"--scale 2", "--out", 2},
        {"--sheet --frame 1", "--frame", 2},
        {"--frame 0", "--frame", 2},
        {"--frame 2", "there is no frame 2, the last one is 1", 1},
        {"--sign Nowhere", "Nowhere: there is no sign of that name", 1},
        {"--size 2001x2000", "4002000 dots are too many for text", 1},
        {"--size 32767x32767 --scale 64 --out p.png", "2097154 x 2097154 pixels is too large", 1},
        {"--size 32767x1 --scale 64 --out p.png", "is too large", 1},
        {"--size 30000x30000 --sheet --out p.png", "is too large", 1},
        {"--out nowhere/p.png", "nowhere/p.png: Path not found", 1},
    };
    for (const auto& [options, reason, exitCode] : cases) {
        SCOPED_TRACE(options);
        const Outcome outcome = vistrel.run("preview signs " + std::string(options));
        EXPECT_EQ(outcome.exitCode, exitCode);
        EXPECT_THAT(outcome.err, HasSubstr(reason));
        EXPECT_FALSE(std::filesystem::exists(vistrel.inHome("p.png")));
    }
}

} // namespace
} // namespace qrtVistrelClasses4
