#include "fonts/classFontMaster.h"

#include "FontTesting.h"

namespace qrtVistrelClasses4 {
namespace {

class FontMaster : public HostTest {
protected:
    FontMaster() {
        Font font{4, 2, {}};
        AddLetter(font, 'N', {"#.#", "###"});
        files().put(path_, HeaderFontBytes(font));
        EXPECT_TRUE(fonts_.LoadExistingFont(path_, kSizeFromFile, kSizeFromFile));
    }

    std::string path_ = host_.inLibrary("test.cmd");
    classFontMaster fonts_;
};

TEST_F(FontMaster, DrawsWithItsPropertiesAndReturnsTheAdvance) {
    fonts_.MagTimes(2);
    fonts_.FontColor(kFontColor);
    PixelBuffer pixels = UntouchedPixels(9, 2);
    std::int32_t advance = 0, width = 0;
    fonts_.DrawLetter("NN", pixels, 0, 0, -1, 0, advance);
    EXPECT_EQ(PictureOf(pixels)[0], "--##..##-");
    fonts_.DrawText("NN", pixels, 0, 0, 0, 0, width);
    EXPECT_EQ(std::tuple(advance, fonts_.LetterWidth("NN"), width, fonts_.TextWidth("NN")),
              std::tuple(6, 6, 12, 12));
    fonts_.HilightSelection("NN", pixels, 0, 0, 1, 1, 0);
    EXPECT_EQ(PictureOf(pixels)[0], "--..##..#");
    for (const char* row : {"##..##..#", "....##..#"}) { // the mark comes and goes
        fonts_.CycleIndexMarker("NN", pixels, 0, 0, 1, 0);
        EXPECT_EQ(PictureOf(pixels)[0], row);
    }
    EXPECT_EQ(std::tuple(fonts_.GlyphOffset(""), fonts_.GlyphOffset("?"), fonts_.GlyphOffset("N")),
              std::tuple(-1, -1, 0));
    fonts_.DrawText("N", pixels, 2147483648.0F, 0, 0, 0, advance);
    EXPECT_EQ(std::pair(advance, takeErrors()), std::pair(0, Numbers{6}));
}

TEST_F(FontMaster, PutsItsStepsOnTheTrace) {
    const std::string font0 = JoinPath(host_.inLibrary("bin"), "6x8.cmd");
    files().put(font0, "");
    PixelBuffer pixels(9, 2);
    std::int32_t advance = 7;
    KeptTrace trace;
    const ScopedTraceRecorder recorderScope(trace);
    fonts_.DrawLetter("NN", pixels, 0, 0, -1, 0, advance);
    fonts_.DrawLetter("", pixels, 0, 0, 0, 0, advance);
    fonts_.DrawText("", pixels, 0, 0, 0, 0, advance = 5);
    EXPECT_TRUE(fonts_.LoadFont("6x8.cmd", -1, -1));
    std::string steps;
    for (const std::string& line : trace.lines)
        if (const std::size_t name = line.find("Font"); line.starts_with("> Function LoadFont"))
            steps += line.substr(name) + "; ";
        else if (line.find("GlyphOffset") != line.npos)
            steps += line + "; ";
        else if (const std::size_t value = line.find("advance="); value != line.npos)
            steps += line.substr(0, 2) + line.substr(value);
    EXPECT_EQ(steps, "> advance=7)> Function GlyphOffset (letter=N); < Function GlyphOffset (letter=N); "
                     "< advance=3)> advance=3)< advance=0)> advance=5)< advance=0)"
                     "Font (path=6x8.cmd, width=-1, height=-1); FontByNum (fontNumber=0, signType=0); "
                     "Font (path=" +
                         font0 + ", width=6, height=8); ");
}

TEST_F(FontMaster, ShowsMessagesAndKeepsItsFontIfLoadingFails) {
    Texts messages;
    fonts_.OnMessage([&](const std::string& message) { messages.push_back(message); });
    const std::string shortPath = host_.inLibrary("short.cmd");
    files().put(shortPath, std::string("\0\2\5\7A", 5));
    EXPECT_FALSE(fonts_.LoadFont(host_.inLibrary("SHORT.cmd"), -1, -1));
    EXPECT_EQ(messages, Texts{"Error Loading Font. Cut short: " + shortPath});
    fonts_.OnMessage([&, own = std::string(100, 'x')](const std::string& message) {
        fonts_.OnMessage(nullptr);
        messages = {own + message};
    });
    EXPECT_FALSE(fonts_.LoadFont("gone.cmd", 6, 8));
    EXPECT_EQ(messages, Texts{std::string(100, 'x') + "gone.cmd NOT FOUND @ gone.cmd in "});
    const std::pair<std::string, Numbers> cases[] = {
        {"", {}}, {host_.inLibrary("6x8.cmd"), {53}}, {shortPath, {62}}, {host_.machine.library, {75}}};
    for (const auto& [path, errors] : cases) {
        EXPECT_FALSE(fonts_.LoadExistingFont(path, -1, -1));
        EXPECT_EQ(takeErrors(), errors) << path;
    }
    host_.failReads(1, 1, SystemError::deviceFailure);
    EXPECT_FALSE(fonts_.LoadFont(path_, -1, -1));
    EXPECT_EQ(takeErrors(), Numbers{57});
    EXPECT_EQ(fonts_.TextWidth("N"), 3);
    fonts_.FontSizeByNum(8);
    fonts_.FontSizeByNum(12);
    EXPECT_EQ(fonts_.FontWidth() * 100 + fonts_.FontHeight(), 2424);
}

} // namespace
} // namespace qrtVistrelClasses4
