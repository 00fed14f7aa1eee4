#include "fonts/FontLoading.h"

#include "FontTesting.h"
#include "fonts/ExtendedFont.h"
#include "fonts/classFontMaster.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>

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

TEST(FontFile, HoldsNoMoreThanFitsAndHasAWholeHeader) {
    EXPECT_FALSE(ParseFont(std::string(3, 'A'), kSizeFromFile, kSizeFromFile));
    EXPECT_EQ(SizedFontBytes(*ParseFont("", 100, 100)).size(), kGlyphStoreSize);
    for (const Font& large : {Font{256, 8, "A"}, Font{8, -1, "A"}, Font{8, 8, std::string(256, 'A')}})
        EXPECT_THROW(HeaderFontBytes(large), RuntimeError) << "what passes a byte";
    EXPECT_NO_THROW(HeaderFontBytes(Font{255, 255, std::string(255, 'A')}));
}

class FontLoading : public HostTest {
protected:
    /// A path below the application folder, given with "/".
    std::string full(std::string path) {
        std::ranges::replace(path, '/', kPathSeparator);
        return host_.inLibrary(path);
    }
    static int widthOfBlank(const FontOutcome& outcome) { return outcome.font ? outcome.font->store[0] : 0; }
};

TEST_F(FontLoading, FindsTheFontOfANumberForATypeOfSign) {
    for (std::int16_t type = -1; type < 200; ++type)
        EXPECT_EQ(clsFontSizes::FontFile(5, type, true) == "Fsacl68b.cmd",
                  type >= 16 && type <= 25 && type != 22);
    files().put(full("bin/Fsacl68b.cmd"), "\7");
    EXPECT_EQ(widthOfBlank(LoadNumberedFont(5, 20, true)), 7);
    Font largest{8, 64, std::string(255, 'A')};
    largest.store.back() = 7;
    files().put(full("largest.CFF"), HeaderFontBytes(largest) + "more");
    EXPECT_EQ(LoadFontFile(full("largest.CFF"), -1, -1, true).font.value().store.back(), 7);
    for (const std::int16_t number : {std::int16_t{-1}, kNumberedFonts}) {
        const FontOutcome none = LoadNumberedFont(number, 20, true);
        EXPECT_TRUE(!none.font && !none.path && none.messages.empty()) << number;
    }
}

TEST_F(FontLoading, ReportsWhichFileWasLoadedInItsPlace) {
    const auto missing = [&](const std::string& folder, const std::string& name) {
        return name + " NOT FOUND @ " + full(folder + name) + " in " + full(folder);
    };
    const std::string noMy = missing("fonts/", "My.cmd"), no6x8 = missing("", "6x8.cmd");
    const std::string nowhere = "Error Loading Font. Could not find " + full("fonts/My.cmd");
    const std::string noFont0 = "Error Loading Font. Could not find " + full("bin/6x8.cmd");
    const auto replaced = [&](const std::string& name) {
        return missing("", name) + " (loading font 0 instead)";
    };
    const Texts noStandard{replaced("FSTND08.cmd"), "FSTND08.cmd NOT FOUND"};
    const Texts nothing{replaced("6x8.cmd"), "6x8.cmd NOT FOUND", missing("bin/", "6x8.cmd"), noFont0};
    using enum FontSource;
    const struct {
        std::string path;
        Texts files;
        int loaded; ///< Number of the file, from 1; 0 for none.
        FontSource source;
        Texts messages;
    } cases[] = {
        {"fonts/My.cmd", {"fonts/My.cmd", "Extended/My.cmd"}, 1, requestedFile, {}},
        {"fonts/My.cmd", {"fonts/My.cmd/My.cmd"}, 0, requestedFile, {noMy, nowhere}},
        {"fonts/My.cmd", {"CustomFonts/My.cmd", "extended/my.cmd"}, 2, sameNameElsewhere, {noMy}},
        {"fonts/My.cmd", {"bin/6x8.cmd", "CustomFonts/My.cmd"}, 2, sameNameElsewhere, {noMy}},
        {"6x8.cmd", {"bin/6x8.cmd", "Extended/6x8.cmd"}, 2, sameNameElsewhere, {no6x8}},
        {"FSTND08.cmd", {"BIN/6X8.CMD"}, 1, font0, noStandard},
        {"6x8.cmd", {}, 0, font0, nothing},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.files));
        TestHost host; // another machine with the same folders
        for (std::size_t i = 0; i < row.files.size(); ++i)
            host.machine.files().put(full(row.files[i]), std::string(1, static_cast<char>(i + 1)));
        const FontOutcome outcome = LoadFontFile(full(row.path), 6, 8, false);
        EXPECT_EQ(widthOfBlank(outcome), row.loaded);
        EXPECT_EQ(outcome.source, row.source);
        EXPECT_EQ(outcome.messages, row.messages);
        EXPECT_EQ(outcome.path.has_value(), row.loaded > 0);
    }
}

TEST_F(FontLoading, TakesLettersThatAFontLacksFromExtendedFonts) {
    const auto letter = [](char code, const std::string& dots) {
        return ExtendedLetter{static_cast<unsigned char>(code), 3, static_cast<std::uint8_t>(dots.size()),
                              dots};
    };
    const auto put = [&](const std::string& name, const ExtendedFontFiles& font) {
        files().put(full("Extended/" + name + ".IDX"), font.index);
        files().put(full("Extended/" + name + ".cff"), font.dots);
    };
    files().put(full("My.cmd"), HeaderFontBytes(FontOf(4, {"###", "#.#"})));
    put("MyL", ExtendedFontBytes({letter('B', "\xc0\xe0"), letter('A', "\xff")}));
    const ExtendedFontFiles further = ExtendedFontBytes({letter('B', "\xe0"), letter('C', "\x80\x80\x80")});
    put("Ex4x2", further);
    const auto pictureOf = [&](const FontOutcome& outcome) {
        PixelBuffer pixels(10, 2, kBackColor);
        DrawLetters({outcome.font.value(), 1, kFontColor}, "ABCD", {pixels}, false);
        return PictureOf(pixels);
    };
    const FontOutcome whole = LoadFontFile(full("My.cmd"), -1, -1, true);
    EXPECT_EQ(whole.messages, Texts{});
    EXPECT_EQ(pictureOf(whole), (Texts{".#####.#..", ".#.#####.."}));
    EXPECT_TRUE(whole.font->has('C') && !whole.font->has('D'));

    const auto cut = [](std::string text) { return text.substr(0, text.size() - 1); };
    const std::string twice = ExtendedFontBytes({letter('B', "1"), letter('B', "2")}).index;
    const ExtendedFontFiles damaged[] = {{cut(further.index), further.dots},
                                         {further.index + '0', further.dots},
                                         {further.index, cut(further.dots)},
                                         {"", ""},
                                         {twice, "12"},
                                         {ExtendedFontBytes({letter('B', "")}).index, ""}};
    for (const ExtendedFontFiles& bad : damaged) {
        put("Ex4x2", bad);
        const FontOutcome outcome = LoadFontFile(full("My.cmd"), -1, -1, true);
        EXPECT_EQ(outcome.messages, Texts{"Error Loading Extended Font [Ex4x2"});
        EXPECT_EQ(pictureOf(outcome)[1], ".#.####...");
    }
}

} // namespace
} // namespace qrtVistrelClasses4
