#include "Program.h"
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameRules.h"
#include "tools/preview/BmpFile.h"
#include "tools/preview/FramePicture.h"
#include "tools/preview/LedPicture.h"
#include "tools/preview/PngFile.h"

#include <gmock/gmock.h>
#include <lodepng.h>

#include <algorithm>
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

TEST(Preview, ShowsFramesAsASignDoes) {
    using enum NEW_FRAME_TYPES;
    const Program vistrel;
    const std::string forty(40, 'A');
    write(vistrel.inHome("small"), {{FRAME_TEXT, {{"A"}}}, {FRAME_TEXT, {{"1"}}}});
    write(vistrel.inHome("long"), {{FRAME_TEXT, {{forty}}}});
    write(vistrel.inHome("scrolling"), {{FRAME_TEXT, {{forty, "tiny", false, true}}}});
    write(vistrel.inHome("tall"), {{FRAME_TEXT, {{"", "1"}, {"", "1"}, {"A", "1"}, {"", "1"}}}});
    write(vistrel.inHome("largest"), {{FRAME_TEXT, std::vector<Line>(99, {std::string(9999, 'A')})}});
    write(vistrel.inHome("signs"), {{FRAME_TEXT,
                                     {{"A", "wide"},
                                      {""},
                                      {"?|hm|"},
                                      {"A", "tiny", true},
                                      {"AAAAAA", "tiny", false, true},
                                      {"A", "1"},
                                      {"A"}}},
                                    {FRAME_TEXT, {{"1"}}, "", true},
                                    {FRAME_TEXT, {{""}, {"A"}}, "", true},
                                    {FRAME_TEXT, {{"1"}, {""}}, "", true},
                                    {FRAME_BLANK, {{"A"}}},
                                    {FRAME_GRAPHIC, {}, "Z:\\gone\\dots.bmp"},
                                    {FRAME_GRAPHICTEXT, {{"A"}}, "dots.bmp"},
                                    {FRAME_GRAPHIC, {{"A"}}, "dots.bmp"},
                                    {FRAME_GRAPHIC, {}, "C:\\x.avi"},
                                    {FRAME_CMD, {}, "x"},
                                    {FRAME_TEXT, {{"A"}}, "dots.bmp"},
                                    {FRAME_GRAPHIC, {}, "x.bmp"},
                                    {FRAME_TEXT, {{"A", "nowhere.cff"}}},
                                    {FRAME_TEXT, {{"A", "12"}}},
                                    {FRAME_TEXT, {{"A", "FSTND08.cmd"}}},
                                    {FRAME_TEXT, {{"A", "-1"}}},
                                    {FRAME_TEXT, {{"A", "9"}}}});
    vistrel.play("preview");

    std::vector<unsigned char> reds; // of pixels, before their greens and blues
    unsigned width = 0, height = 0;
    ASSERT_EQ(lodepng::decode(reds, width, height, vistrel.inHome("sheet.png"), LCT_RGB), 0U);
    std::string dots; // of frame 2, from the middle of the first: 8 pixels from one to the next
    for (unsigned y = 34 + 9; y < 34 + 9 + 24; y += 8)
        for (unsigned x = 12 + 46 + 9; x < 12 + 46 + 9 + 24; x += 8)
            dots += reds.at((y * width + x) * std::size_t{3}) > 200 ? '#' : '.';
    EXPECT_EQ(dots, "..#..#..#");
}

using Pixels = std::vector<std::vector<Color>>;

Pixels pixelsOf(const PixelBuffer& picture) {
    Pixels rows;
    for (std::int32_t y = 0; y < picture.height(); ++y)
        rows.emplace_back(picture.row(y).begin(), picture.row(y).end());
    return rows;
}

constexpr Color kRed = Rgb(255, 0, 0), kGreen = Rgb(0, 255, 0), kBlue = Rgb(0, 0, 255);

std::string bytesOf(std::uint32_t number, int count) {
    std::string bytes;
    for (; count-- > 0; number >>= 8)
        bytes += static_cast<char>(number & 0xff);
    return bytes;
}

/// A file with two rows of three pixels.
std::string bmp(unsigned bits, const std::string& rows, std::int32_t height = 2, unsigned compression = 0,
                const std::string& masks = "") {
    const std::string red("\0\0\xff\0", 4), green("\0\xff\0\0", 4), blue("\xff\0\0\0", 4), black(4, '\0');
    const std::string palette = bits == 1 ? black + red : bits <= 8 ? black + red + green + blue : "";
    const auto colors = static_cast<std::uint32_t>(palette.size() / 4);
    return "BM" + bytesOf(0, 8) + bytesOf(static_cast<std::uint32_t>(54 + palette.size() + masks.size()), 4) +
           bytesOf(40, 4) + bytesOf(3, 4) + bytesOf(static_cast<std::uint32_t>(height), 4) + bytesOf(1, 2) +
           bytesOf(bits, 2) + bytesOf(compression, 4) + bytesOf(0, 12) + bytesOf(colors, 4) + bytesOf(0, 4) +
           palette + masks + rows;
}

TEST(BmpFile, IsReadInEveryUncompressedForm) {
    const std::string lower24("\0\0\xff\0\xff\0\xff\0\0\0\0\0", 12), upper24(12, '\0');
    const std::string lower32("\0\0\xff\x7f\0\xff\0\0\xff\0\0\0", 12), upper32(12, '\0');
    const std::string fiveBits("\0\x7c\xe0\x03\x1f\0\0\0", 8), upper16(8, '\0');
    const std::string sixGreens("\0\xf8\xe0\x07\x1f\0\0\0", 8);
    const std::string masks565 = bytesOf(0xf800, 4) + bytesOf(0x7e0, 4) + bytesOf(0x1f, 4);
    const std::string masks888 = bytesOf(0xff0000, 4) + bytesOf(0xff00, 4) + bytesOf(0xff, 4);
    const Pixels colors{{0, 0, 0}, {kRed, kGreen, kBlue}}, twoColors{{0, 0, 0}, {kRed, 0, kRed}};
    const struct {
        const char* why;
        std::string file;
        Pixels pixels;
    } cases[] = {
        {"two colours, rows of four bytes", bmp(1, {"\xa0\0\0\0\0\0\0\0", 8}), twoColors},
        {"two pixels a byte", bmp(4, {"\x12\x30\0\0\0\0\0\0", 8}), colors},
        {"numbers beyond the palette are black", bmp(8, {"\1\2\3\0\4\xff\0\0", 8}), colors},
        {"three bytes a pixel", bmp(24, lower24 + upper24), colors},
        {"four, one of them unused", bmp(32, lower32 + upper32), colors},
        {"two, of five bits a colour", bmp(16, fiveBits + upper16), colors},
        {"two, with masks", bmp(16, sixGreens + upper16, 2, 3, masks565), colors},
        {"four, with masks", bmp(32, lower32 + upper32, 2, 3, masks888), colors},
        {"the topmost row first", bmp(24, upper24 + lower24, -2), colors},
    };
    for (const auto& [why, file, pixels] : cases) {
        SCOPED_TRACE(why);
        const auto picture = ParseBmp(file);
        ASSERT_TRUE(picture);
        EXPECT_EQ(pixelsOf(*picture), pixels);
        const auto size = BmpSize(file.substr(0, kBmpStart), file.size());
        ASSERT_TRUE(size);
        EXPECT_EQ(std::pair(size->width, size->height), std::pair(3, 2)) << "without the pixels";
        for (std::size_t cut = 0; cut < file.size(); ++cut) {
            EXPECT_FALSE(ParseBmp(file.substr(0, cut))) << "cut short at " << cut;
            EXPECT_FALSE(BmpSize(file.substr(0, std::min(cut, kBmpStart)), cut)) << "cut short at " << cut;
        }
    }
}

TEST(BmpFile, IsNoPictureInAnyOtherForm) {
    const std::string rows(24, '\0');
    const auto changed = [&](std::size_t at, const std::string& bytes) {
        return bmp(24, rows).replace(at, bytes.size(), bytes);
    };
    const std::pair<const char*, std::string> cases[] = {
        {"compressed", bmp(8, rows, 2, 1)},
        {"masks for a palette's numbers", bmp(8, rows, 2, 3)},
        {"no bits at all", bmp(0, rows)},
        {"no rows", bmp(24, rows, 0)},
        {"a height without a positive one", bmp(24, rows, INT32_MIN)},
        {"too many rows", bmp(24, rows, kLargestBmpSide + 1)},
        {"a width below 0", changed(18, "\xff\xff\xff\xff")},
        {"an old header", changed(14, {"\x0c\0\0\0", 4})},
        {"a header beyond the end", changed(14, "\xff\xff\xff\xff")},
        {"pixels beyond the end", changed(10, "\xff\xff\xff\xff")},
        {"another file", changed(0, "MZ")},
    };
    for (const auto& [why, file] : cases)
        EXPECT_FALSE(ParseBmp(file)) << why;
}

TEST(Pictures, AreLookedIntoOnceForTheSizeOfASign) {
    TestHost host;
    MemoryFileSystem& files = host.machine.files();
    constexpr std::int32_t side = kLargestBmpSide;
    const std::string large =
        bmp(1, std::string(side / 8 * side, '\xaa'), side).replace(18, 4, bytesOf(side, 4));
    OneBasedArray<FrameRecord> frames(60);
    int number = 0;
    for (FrameRecord& frame : frames) {
        SetFrameType(frame, StoredFrameType(NEW_FRAME_TYPES::FRAME_GRAPHIC));
        frame.PicturefileName = host.inLibrary(std::to_string(number++ % 6) + ".bmp");
        files.put(frame.PicturefileName, large);
    }
    ErrorLines errors;
    FramePainter painter({}, errors);
    int reads = 0;
    files.observer = [&](const FileOperation& operation) {
        reads += operation.kind == FileOperation::read ? 1 : 0;
        return SystemError::none;
    };
    const DotSize size = painter.sizeFor(frames);
    EXPECT_EQ(std::pair(size.width, size.height), std::pair(512, 128));
    EXPECT_EQ(reads, 12) << "each of six opened, and its start read";
    EXPECT_TRUE(errors.empty());
}

TEST(FontShelf, KeepsAFontOnceWhateverItsNameAndFewAtATime) {
    TestHost host;
    ErrorLines errors;
    FontShelf shelf(0, errors);
    const auto put = [&](const std::string& name) {
        host.machine.files().put(host.inLibrary(name), HeaderFontBytes({4, 3, "A"}));
    };
    put("bin/Fstnd08.cmd");
    for (std::size_t number = 0; number <= FontShelf::kMostCustomFonts; ++number)
        put("CustomFonts/" + std::to_string(number) + ".CFF");
    const std::int16_t custom = 12;
    std::weak_ptr<classFontMaster> first = shelf.find(custom, "x/0.CFF");
    EXPECT_EQ(shelf.find(custom, "y/0.CFF"), first.lock());
    for (std::size_t number = 0; number <= FontShelf::kMostCustomFonts; ++number)
        EXPECT_NE(shelf.find(custom, std::to_string(number) + ".CFF"), nullptr);
    EXPECT_TRUE(first.expired());
    EXPECT_TRUE(errors.empty());
    for (const char* missing : {"nowhere", "x/6x8.cmd", "y/6x8.cmd", "", "caf\xe9"})
        EXPECT_EQ(shelf.find(custom, missing), shelf.find(0, "")) << missing;
    EXPECT_THAT(errors.lines(), testing::Contains(testing::EndsWith("Could not find caf\u00e9")));
}

TEST(Png, HoldsThePixelsForAnyDecoder) {
    for (const std::uint32_t colors : {1U, 256U, 257U, 60000U}) {
        SCOPED_TRACE(colors);
        PixelBuffer picture(311, 200);
        std::vector<unsigned char> wanted, decoded;
        for (std::uint32_t number = 0; number < 311 * 200; ++number) {
            const Color color = number % colors * 0x10203 & 0xffffff;
            picture.row(static_cast<std::int32_t>(number / 311))[number % 311] = color;
            wanted.insert(wanted.end(), {RedOf(color), GreenOf(color), BlueOf(color)});
        }
        const std::string png = EncodePng(picture);
        unsigned width = 0, height = 0;
        lodepng::decode(decoded, width, height, std::vector<unsigned char>(png.begin(), png.end()), LCT_RGB);
        EXPECT_EQ(std::pair(width, height), std::pair(311U, 200U));
        EXPECT_TRUE(decoded == wanted);
    }
}

/// "#" for a pixel of a lit dot, "o" for one of a dark dot, of a lit one's glow or of the rim, "." for a gap.
std::string looksOf(const PixelBuffer& picture) {
    std::string looks;
    for (const auto& row : pixelsOf(picture)) {
        looks += '\n';
        for (const Color pixel : row)
            looks += RedOf(pixel) >= 128 ? '#' : RedOf(pixel) >= 36 ? 'o' : '.';
    }
    return looks;
}

TEST(LedPicture, ShowsLitDotsDarkDotsAndGaps) {
    PixelBuffer dots(2, 1);
    dots.row(0)[1] = kRed;
    for (const auto& [scale, looks] : {std::pair(2, R"(
oooooooo
oooooooo
oooo##oo
oooo##oo
oooooooo
oooooooo)"),
                                       {5, R"(
oooooooooooooooo
oooooooooooooooo
oooooooooooooooo
ooo.....o###oooo
ooo.ooo.#####ooo
ooo.ooo.#####ooo
ooo.ooo.#####ooo
ooo.....o###oooo
oooooooooooooooo
oooooooooooooooo
oooooooooooooooo)"}}) {
        LedPainter painter(scale);
        PixelBuffer picture(static_cast<std::int32_t>(painter.sizeOf(2)),
                            static_cast<std::int32_t>(painter.sizeOf(1)));
        painter.draw(dots, picture, 0, 0);
        EXPECT_EQ(looksOf(picture), looks);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
