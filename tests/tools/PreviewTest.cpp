// Frames drawn as a sign shows them.
#include "Program.h"
#include "playfile/FrameInfoClass.h"

#include <lodepng.h>

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct Line {
    std::string text;
    std::string font = "tiny"; ///< A file, or a number.
    bool inverse = false, scrolling = false;
};

struct Frame {
    NEW_FRAME_TYPES type;
    std::vector<Line> lines;
    std::string file = {};
    bool overlay = false;
};

void addLine(FrameInfoClass& playfile, const Line& line) {
    const bool isNumber = line.font.find_first_not_of("-0123456789") == std::string::npos;
    playfile.CurrentLineText(line.text);
    playfile.Inverse(line.inverse);
    playfile.Scrolling(line.scrolling);
    playfile.LineFontSize(isNumber ? static_cast<std::int16_t>(std::stoi(line.font)) : std::int16_t{12});
    playfile.LineCustomFont(isNumber ? "" : line.font);
}

void write(const std::string& path, const std::vector<Frame>& frames) {
    FrameInfoClass playfile;
    playfile.TotalFrames(static_cast<std::int16_t>(frames.size()));
    for (std::int16_t number = 1; const Frame& frame : frames) {
        playfile.CurrentFrame(number);
        playfile.FrameName("F" + std::to_string(number++));
        playfile.FrameType(StoredFrameType(frame.type));
        playfile.OverlayFrame(frame.overlay);
        playfile.PicturefileName(frame.type == NEW_FRAME_TYPES::FRAME_CMD ? "" : frame.file);
        playfile.commandfile(frame.type == NEW_FRAME_TYPES::FRAME_CMD ? frame.file : "");
        playfile.TotalLinesAllowed(static_cast<std::int16_t>(frame.lines.size()));
        for (std::int16_t place = 1; const Line& line : frame.lines) {
            playfile.CurrentLineNumber(place++);
            addLine(playfile, line);
        }
    }
    ASSERT_TRUE(playfile.WritePlayfileToDisk(path));
}

class Preview : public testing::Test {
protected:
    Preview() { vistrel_.play("preview-set-up"); }
    void play(const std::string& playfile, const std::vector<Frame>& frames) {
        write(vistrel_.inHome(playfile), frames);
        vistrel_.play("preview-" + playfile);
    }

    const Program vistrel_;
};
using enum NEW_FRAME_TYPES;

TEST_F(Preview, StacksLinesInTheirFontsAndDrawsOverlaysOverThem) {
    const std::vector<Line> lines{
        {"A", "wide"}, {""}, {"?|hm|"}, {"A", "tiny", true}, {"AAAAAA", "tiny", false, true}, {"A", "1"}};
    play("texts", {{FRAME_TEXT, lines},
                   {FRAME_TEXT, {{"1"}}, "", true},
                   {FRAME_TEXT, {{""}, {"A"}}, "", true},
                   {FRAME_TEXT, {{"1"}, {""}}, "", true},
                   {FRAME_BLANK, {{"A"}}}});
}

TEST_F(Preview, ShowsPicturesThatAreFoundAndBoxesForOtherFiles) {
    play("pictures", {{FRAME_GRAPHIC, {}, "Z:\\gone\\dots.bmp"},
                      {FRAME_GRAPHICTEXT, {{"A"}}, "dots.bmp"},
                      {FRAME_GRAPHIC, {{"A"}}, "dots.bmp"},
                      {FRAME_TEXT, {{"A"}}, "dots.bmp"},
                      {FRAME_GRAPHIC, {}, "C:\\x.avi"},
                      {FRAME_CMD, {}, "x"},
                      {FRAME_GRAPHIC, {}, "x.bmp"}});
}

TEST_F(Preview, UsesFont0InsteadOfOneThatIsMissing) {
    std::vector<Frame> frames;
    for (const char* font : {"nowhere.cff", "12", "FSTND08.cmd", "-1", "9"})
        frames.push_back({FRAME_TEXT, {{"A", font}}});
    play("missing", frames);
}

TEST_F(Preview, SuitsItsSizeToThePlayfileAndBecomesAPicture) {
    const std::string forty(40, 'A');
    write(vistrel_.inHome("long"), {{FRAME_TEXT, {{forty}}}});
    write(vistrel_.inHome("scrolling"), {{FRAME_TEXT, {{forty, "tiny", false, true}}}});
    write(vistrel_.inHome("tall"), {{FRAME_TEXT, {{"", "1"}, {"", "1"}, {"A", "1"}, {"", "1"}}}});
    write(vistrel_.inHome("largest"), {{FRAME_TEXT, std::vector<Line>(99, {std::string(9999, 'A')})}});
    play("small", {{FRAME_TEXT, {{"A"}}}, {FRAME_TEXT, {{"1"}}}});

    std::vector<unsigned char> reds; // of pixels, before their greens and blues
    unsigned width = 0, height = 0;
    ASSERT_EQ(lodepng::decode(reds, width, height, vistrel_.inHome("sheet.png"), LCT_RGB), 0U);
    std::string dots; // of frame 2, from the middle of the first: 8 pixels from one to the next
    for (unsigned y = 34 + 9; y < 34 + 9 + 24; y += 8)
        for (unsigned x = 12 + 46 + 9; x < 12 + 46 + 9 + 24; x += 8)
            dots += reds.at((y * width + x) * std::size_t{3}) > 200 ? '#' : '.';
    EXPECT_EQ(dots, "..#..#..#");
}

} // namespace
} // namespace qrtVistrelClasses4
