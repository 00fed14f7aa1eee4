#include "fonts/FontFile.h"

#include "TestHost.h"
#include "fonts/clsFontSizes.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

/// A font with a header: two characters in cells of 5 x 7.
const std::string kHeaderFont = std::string("\x63\x02\x05\x07yA", 6) + std::string(kGlyphStoreSize, '\x2a');

TEST(FontFile, HasRecordsOfTheSizeThatItsCellNeeds) {
    struct Case {
        std::int16_t width, height;
        int bytesPerRow, offsetOfA;
    };
    const Case cases[] = {
        {4, 8, 1, 297},
        {6, 8, 1, 297},
        {8, 8, 1, 297},
        {9, 8, 1, 297},
        {11, 8, 1, 297},
        {12, 16, 2, 1089},
        {16, 16, 2, 1089},
        {19, 16, 2, 1089},
        {20, 20, 3, 2013},
        {24, 24, 3, 2409},
        {24, 32, 3, 3201},
        {27, 32, 3, 3201},
        {28, 32, 4, 4257},
        {33, 33, 4, 4389},
        {0, 0, 0, 33},
        {-5, 8, -1, -231},
        {32767, 32767, 4096, 2147483647},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.width);
        const Font font = *ParseFont("", c.width, c.height);
        EXPECT_EQ(font.bytesPerRow(), c.bytesPerRow);
        EXPECT_EQ(font.glyphOffset('A'), c.offsetOfA);
    }
}

TEST(FontFile, FindsAGlyphByItsCharacter) {
    struct Case {
        const char* why;
        std::string characters;
        char character;
        std::int32_t offset;
    };
    const Case cases[] = {
        {"the first", "xyz", 'x', 0},
        {"the last", "xyz", 'z', 18},
        {"the first of two", "xyzy", 'y', 9},
        {"in that case of the letter only", "xyz", 'Z', -1},
        {"absent", "xyz", ' ', -1},
        {"by its other code", "xy\x7f", '\xa6', 18},
        {"by its other code alone", "xy\xa6", '\xa6', -1},
        {"without characters from 32 on", "", 'A', 297},
        {"without characters by its other code", "", '\xa6', 855},
        {"without characters beyond 127", "", '\xff', 2007},
        {"without characters below 32", "", '\x1f', -9},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ((Font{6, 8, c.characters}.glyphOffset(c.character)), c.offset);
    }
}

TEST(FontFile, HoldsTheCharactersFrom32To127WithoutSayingSo) {
    const Font font = *ParseFont("\x05\x80", 6, 8);
    EXPECT_EQ(font.characters.size(), 96u);
    EXPECT_EQ(font.glyphOffset(' '), 0);
    EXPECT_EQ(font.glyphOffset('\x7f'), 855);
    EXPECT_EQ(font.glyphOffset('\x80'), -1);
    EXPECT_EQ(font.store[1], 0x80);
    EXPECT_EQ(font.store[2], 0) << "what the file lacks";
}

TEST(FontFile, IsNoneWhenCutShortBeforeItsGlyphs) {
    for (const std::size_t size : {0, 1, 3, 4, 5, 6, 7, 8, 5000, 16306, 16307}) {
        SCOPED_TRACE(size);
        const auto font = ParseFont(std::string_view(kHeaderFont).substr(0, size), -1, -1);
        ASSERT_EQ(font.has_value(), size >= 6);
        if (!font)
            continue;
        EXPECT_EQ(font->width, 5);
        EXPECT_EQ(font->height, 7);
        EXPECT_EQ(font->characters, "yA");
        EXPECT_EQ(std::count(font->store.begin(), font->store.end(), 0x2a), size - 6);
    }
    EXPECT_EQ(ParseFont(kHeaderFont + "more", -1, -1)->store, ParseFont(kHeaderFont, -1, -1)->store);
}

TEST(FontFile, IsWrittenAsItIsRead) {
    const std::string glyphs = "\x05"
                               "abcdefg"
                               "\x04"
                               "hijklmn";
    const std::string header("\0\x02\x05\x07yA", 6);
    EXPECT_EQ(HeaderFontBytes(*ParseFont(header + glyphs, -1, -1)), header + glyphs);

    const std::string sized(96 * 9, 'x');
    EXPECT_EQ(SizedFontBytes(*ParseFont(sized, 6, 8)), sized);
    EXPECT_EQ(SizedFontBytes(*ParseFont("", 24, 32)).size(), 96u * 97);
    EXPECT_EQ(SizedFontBytes(*ParseFont("", 100, 100)).size(), kGlyphStoreSize) << "no more than fits";
}

TEST(FontFile, HasNoHeaderForWhatPassesAByte) {
    for (const Font& font : {Font{256, 8, "A"}, Font{8, -1, "A"}, Font{8, 8, std::string(256, 'A')}})
        EXPECT_THROW(HeaderFontBytes(font), RuntimeError);
    EXPECT_NO_THROW(HeaderFontBytes(Font{255, 255, std::string(255, 'A')}));
}

} // namespace
} // namespace qrtVistrelClasses4
