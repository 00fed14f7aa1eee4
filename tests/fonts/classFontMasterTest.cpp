#include "fonts/classFontMaster.h"

#include "FontTesting.h"

namespace qrtVistrelClasses4 {
namespace {

class FontMaster : public HostTest {
protected:
    /// Loads a font from a file.
    void load(const Font& font) {
        files().put(path_, HeaderFontBytes(font));
        ASSERT_TRUE(fonts_.LoadExistingFont(path_, kSizeFromFile, kSizeFromFile));
    }

    std::string path_ = host_.inLibrary("test.cmd");
    classFontMaster fonts_;
};

TEST_F(FontMaster, DrawsWithItsPropertiesAndReturnsTheAdvance) {
    Font font{4, 2, {}};
    AddLetter(font, 'N', {"#.#", "###"});
    load(font);
    fonts_.MagTimes(2);
    fonts_.FontColor(kFontColor);
    PixelBuffer pixels = UntouchedPixels(9, 4);
    std::int32_t advance = 0;
    fonts_.DrawLetter("NN", pixels, 0, 0, -1, 0, advance);
    EXPECT_EQ(PictureOf(pixels), (Texts{"--##..##-", "--##..##-", "--######-", "--######-"}));
    EXPECT_EQ(std::tuple(advance, fonts_.LetterWidth("NN"), fonts_.TextWidth("NN")), std::tuple(6, 6, 12));
    fonts_.DrawText("NN", pixels, 0, 0, 0, 0, advance);
    EXPECT_EQ(advance, 12);
    fonts_.HilightSelection("NN", pixels, 0, 0, 1, 1, 0);
    EXPECT_EQ(PictureOf(pixels), (Texts{"--..##..#", "--..##..#", "--......#", "--......#"}));
    for (const char* column : {"##", ".."}) { // the mark comes and goes
        fonts_.CycleIndexMarker("NN", pixels, 0, 0, 1, 0);
        EXPECT_EQ(PictureOf(pixels)[0].substr(0, 2), column);
    }
    fonts_.DrawLetter("", pixels, 0, 0, 0, 0, advance);
    EXPECT_EQ(std::tuple(advance, fonts_.GlyphOffset(""), fonts_.GlyphOffset("?"), fonts_.GlyphOffset("N")),
              std::tuple(0, -1, -1, 0));
}

TEST_F(FontMaster, TrapsErrorsOfDrawing) {
    load(FontOf(6, {"#"}));
    PixelBuffer pixels(6, 2);
    std::int32_t advance = 99;
    fonts_.DrawText("A", pixels, 2147483648.0F, 0, 0, 0, advance);
    EXPECT_EQ(advance, 0);
    EXPECT_EQ(takeErrors(), Numbers{6});
}

} // namespace
} // namespace qrtVistrelClasses4
