// Parts of the program, with what no session can show.
#include "frame/Traced.h"
#include "platform/memory/KeptBytes.h"
#include "tools/preview/PngFile.h"
#include "tools/program/AllowedValues.h"
#include "tools/program/Encoding.h"
#include "tools/program/ShellWord.h"
#include "tools/program/StandardOutput.h"

#include <gtest/gtest.h>
#include <lodepng.h>
#include <png.h>

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

TEST(Encoding, EveryByteIsACharacterOfTheCodePageAndComesBack) {
    for (int code = 0; code < 256; ++code) {
        const std::string ansi(1, static_cast<char>(code));
        EXPECT_EQ(AnsiFromUtf8(Utf8FromAnsi(ansi)), ansi);
    }
    EXPECT_EQ(Utf8FromAnsi("Caf\xe9 \x80\x9f \x81\x9d \xa0"), "Caf\u00e9 \u20ac\u0178 \u0081\u009d \u00a0")
        << "first and last of its own range, undefined codes, first after it";
    for (const char* lacking : {"\u042b", "\u0080", "\U0001f600", "\xc3"})
        EXPECT_EQ(AnsiFromUtf8(lacking), std::nullopt) << lacking;
}

TEST(WordToCopy, RunsNothing) {
    EXPECT_EQ(WordToCopy("it's $HOME", Shells::posix), R"('it'\''s $HOME')");
    EXPECT_EQ(WordToCopy("a\nb", Shells::posix), std::nullopt);
    EXPECT_EQ(WordToCopy("C:\\a & b\\", Shells::windows), R"("C:\a & b\\")");
    for (const char* dangerous : {"a\"b", "%a%", "$(a)", "`a", "\u201da"})
        EXPECT_EQ(WordToCopy(dangerous, Shells::windows), std::nullopt) << dangerous;
}

TEST(StandardOutput, WritesNothingAfterAPieceThatCouldNotBeWritten) {
    struct FullForAWhile final : Console { // when the second piece comes
        bool isTerminal(StandardStream) override { return false; }
        Terminal terminal() override { return {}; }
        SystemError write(StandardStream, std::string_view text) override {
            written += text.front();
            return written == "ab" ? SystemError::diskFull : SystemError::none;
        }
        std::string written;
    } console;
    StandardOutput output(console);
    for (const char letter : {'a', 'b', 'c'})
        std::ostream(&output) << std::string(StandardOutput::kPieceSize, letter);
    EXPECT_FALSE(output.finish());
    EXPECT_EQ(console.written, "ab");
}

TEST(AllowedValues, AreThoseThatSignsCanHave) {
    const struct {
        const char* property;
        std::vector<std::string> allowed, refused;
    } cases[] = {
        {"StartTime",
         {"", "12:30pm", "6:05:59 AM", "23:59", "0:00"},
         {"24:00", "0:30 PM", "6:60", "6", "noon"}},
        {"ColorsSupported", {"RED", "Red, green,Blue"}, {"Red,", "Red,Puce", "RedGreen"}},
        {"IPAddress",
         {"10.0.0.255", "sign4.local", "a-1"},
         {"10.0.0.256", "10.0.0", "1.2.3.4.", "a..b", "-a"}},
        {"CommPort", {"com256", "1", "65535", "/dev/ttyS0"}, {"COM0", "COM257", "0", "65536", "port"}},
        {"BaudRate", {"115200"}, {"9601", "9600 "}},
        {"PhoneNumber", {"+49 (40) 555-0142", "0W112"}, {"call", "-", std::string(255, '1')}},
    };
    for (const auto& [property, allowed, refused] : cases) {
        for (const std::string& text : allowed)
            EXPECT_TRUE(Allows(AllowedValuesOf(property), text)) << property << ' ' << text;
        for (const std::string& text : refused)
            EXPECT_FALSE(Allows(AllowedValuesOf(property), text)) << property << ' ' << text;
    }
}

TEST(Encoding, NamesOfFilesAreKeptInTheCodePageWhereTheyCanBeReadBack) {
    const struct {
        const char* why;
        std::string onDisk, inPlayfile, shown = onDisk;
    } cases[] = {
        {"letters of the code page", "/\u00fc/Gr\u00f6\u00dfe \u20ac", "/\xfc/Gr\xf6\xdf\x65 \x80"},
        {"a folder with another letter", "/\u042b/\u00fc.bmp", "/\u042b/\xfc.bmp"},
        {"no UTF-8", "/\u00fc/\xff.bmp", "/\u00fc/\xff.bmp", "/\u00fc/\u00ff.bmp"},
        {"what would be UTF-8 again", "/\u00c3\u00b6/\u00fc", "/\u00c3\u00b6/\u00fc"},
        {"a control character", "/\u00fc\x1b", "/\xfc\x1b", "/\u00fc\u241b"},
    };
    for (const auto& [why, onDisk, inPlayfile, shown] : cases) {
        EXPECT_EQ(NameForPlayfile(onDisk), inPlayfile) << why;
        EXPECT_EQ(VisibleName(inPlayfile), shown) << why;
    }
}

TEST(Encoding, ControlCharactersAreShownBySigns) {
    EXPECT_EQ(Visible(std::string("a\0\r\n\x7f", 5)), "a\u2400\u240d\u240a\u2421");
    EXPECT_EQ(Visible("\x1b[2J \u0081"), "\u241b[2J \\x81") << "no escape, and undefined codes spelt out";
    const struct {
        const char* why;
        std::string utf8, shown;
    } bytes[] = {
        {"letters of any length stay", "Caf\u00e9 \u20ac\U0001f600\U0010ffff",
         "Caf\u00e9 \u20ac\U0001f600\U0010ffff"},
        {"a control character alone", "\x9b[m", "\\x9B[m"},
        {"a letter with two instead of one", "\xc1\x81", "\\xC1\\x81"},
        {"no character: half of a pair", "\xed\xa0\x80", "\\xED\\xA0\\x80"},
        {"no character: too large", "\xf4\x90\x80\x80", "\\xF4\\x90\\x80\\x80"},
        {"no start", "\xf8\xff\xa9", "\\xF8\\xFF\\xA9"},
        {"the end of the text", "\xf0\x9f\x98", "\\xF0\\x9F\\x98"},
    };
    for (const auto& [why, utf8, shown] : bytes)
        EXPECT_EQ(Visible(utf8), shown) << why;
}

Raster pictureOf(std::uint32_t colors) {
    Raster picture(311, 200);
    for (std::uint32_t number = 0; number < 311 * 200; ++number)
        picture.row(static_cast<std::int32_t>(number / 311))[number % 311] =
            number % colors * 0x10203 & 0xffffff;
    return picture;
}

void write(const Raster& picture, const Palette& palette, ByteSink& file) {
    PngWriter png(picture.size(), palette, file);
    png.write(picture);
    png.finish();
}

/// Channels of pixels, row by row, and the width of a row.
using Pixels = std::pair<std::vector<std::uint8_t>, std::uint32_t>;

Pixels decodedByLodepng(std::string_view file) {
    Pixels pixels;
    unsigned height = 0;
    lodepng::decode(pixels.first, pixels.second, height, reinterpret_cast<const unsigned char*>(file.data()),
                    file.size(), LCT_RGB);
    return pixels;
}

Pixels decodedByLibpng(std::string_view file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    png_image_begin_read_from_memory(&image, file.data(), file.size());
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> channels(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, channels.data(), 0, nullptr);
    EXPECT_EQ(image.warning_or_error, 0U) << image.message;
    return {channels, image.width};
}

TEST(Png, HoldsThePixelsForAnyDecoder) {
    for (const std::uint32_t colors : {1U, 2U, 4U, 16U, 256U, 257U, 60000U}) {
        const Raster picture = pictureOf(colors);
        Palette palette;
        palette.add(picture);
        KeptBytes file;
        write(picture, palette, file);
        Pixels wanted{{}, 311};
        for (std::int32_t y = 0; y < picture.height(); ++y)
            for (const Color color : picture.row(y))
                wanted.first.insert(wanted.first.end(), {RedOf(color), GreenOf(color), BlueOf(color)});
        EXPECT_TRUE(decodedByLodepng(file.text) == wanted) << colors;
        EXPECT_TRUE(decodedByLibpng(file.text) == wanted) << colors;
    }
}

TEST(Png, FailsOnAFullDisk) {
    struct FullDisk final : ByteSink {
        SystemError write(std::string_view) override { return SystemError::diskFull; }
    } full;
    Palette palette;
    palette.add(pictureOf(60000));
    EXPECT_EQ(ErrorOf([&] { write(pictureOf(60000), palette, full); }).value().number(), 61);
}

} // namespace
} // namespace qrtVistrelClasses4
