#include "fonts/FontFile.h"

#include <qrtVistrelClasses4/RuntimeError.h>

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(FontFile, HasGlyphsOfTheSizeThatItsCellNeeds) {
    const std::tuple<std::int16_t, std::int16_t, std::int32_t> cells[] = {
        {3, 8, 33},     {4, 8, 297},    {11, 8, 297},   {12, 16, 1089}, {19, 16, 1089},
        {20, 20, 2013}, {27, 32, 3201}, {28, 32, 4257}, {-5, 8, -231},  {32767, 32767, 2147483647}};
    for (const auto& [width, height, offset] : cells)
        EXPECT_EQ((Font{width, height, ""}.glyphOffset('A')), offset) << width;
    // Without characters they are those from 32 on. Character 166 has the glyph of 127.
    const std::tuple<const char*, char, std::optional<std::int32_t>> characters[] = {
        {"", '\xff', 2007}, {"", '\x1f', -9},  {"", '\xa6', 855},      {"xyzy", 'x', 0},
        {"xyzy", 'y', 9},   {"xyzy", 'Z', {}}, {"xy\x7f", '\xa6', 18}, {"xy\xa6", '\xa6', {}}};
    for (const auto& [all, character, offset] : characters)
        EXPECT_EQ((Font{6, 8, all}.glyphOffset(character)), offset) << all << character;
}

TEST(FontFile, IsNoneWhenCutShortBeforeItsGlyphs) {
    const std::string whole = std::string("\x63\x02\x05\x07yA", 6) + std::string(kGlyphStoreSize, '\x2a');
    for (const std::size_t size : {0, 3, 5})
        EXPECT_FALSE(ParseFont(whole.substr(0, size), -1, -1)) << size;
    EXPECT_EQ(ParseFont(whole.substr(0, 6), -1, -1)->store, Font().store) << "which read as 0";
    EXPECT_EQ(ParseFont(whole + "more", -1, -1)->store, ParseFont(whole, -1, -1)->store);
}

TEST(FontFile, IsWrittenAsItIsRead) {
    const std::string header = std::string("\0\2\5\7yA", 6) + "\5abcdefg\4hijklmn";
    const Font font = ParseFont(header, -1, -1).value();
    EXPECT_EQ(std::tuple(font.width, font.height, font.characters), std::tuple(5, 7, "yA"));
    EXPECT_EQ(HeaderFontBytes(font), header);
    const std::string sized(96 * 9, 'x');
    EXPECT_EQ(SizedFontBytes(*ParseFont(sized, 6, 8)), sized) << "characters 32 to 127";
    EXPECT_EQ(SizedFontBytes(*ParseFont("", 100, 100)).size(), kGlyphStoreSize) << "no more than fits";
    for (const Font& large : {Font{256, 8, "A"}, Font{8, -1, "A"}, Font{8, 8, std::string(256, 'A')}})
        EXPECT_THROW(HeaderFontBytes(large), RuntimeError) << "what passes a byte";
    EXPECT_NO_THROW(HeaderFontBytes(Font{255, 255, std::string(255, 'A')}));
}

} // namespace
} // namespace qrtVistrelClasses4
