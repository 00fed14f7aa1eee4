#include "playfile/FrameInfoClass.h"

#include "PlayfileText.h"
#include "TestHost.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class PlayfileLoad : public testing::Test {
protected:
    PlayfileLoad() { host_.machine.files().makeFolders(folder_); }
    bool load(const std::string& text) {
        host_.machine.files().put(path_, text);
        const bool result = playfile_.GetPlayfileFromDisk(path_);
        playfile_.CurrentFrame(1);
        playfile_.CurrentLineNumber(1);
        return result;
    }
    /// Loads one frame with the value at `place` replaced.
    bool loadWith(int place, const std::string& value) {
        auto values = onePlayfileFrame();
        values[static_cast<std::size_t>(place)] = value;
        return load(playfileText(values));
    }
    template <class Value>
    void expectRead(const char* why, int place, const char* value, Value (FrameInfoClass::*property)(),
                    std::type_identity_t<Value> expected) {
        EXPECT_TRUE(loadWith(place, value)) << why;
        EXPECT_EQ((playfile_.*property)(), expected) << why;
    }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string folder_ = host_.inLibrary("plays");
    std::string path_ = JoinPath(folder_, "a.playfile");
};

TEST_F(PlayfileLoad, ReadsEveryValueIntoItsProperty) {
    ASSERT_TRUE(load(playfileText(onePlayfileFrame())));
    EXPECT_EQ(playfile_.CurrentFileName(), path_);
    EXPECT_EQ(playfile_.TotalFrames(), 1);
    EXPECT_EQ(playfile_.FrameName(), "Welcome");
    EXPECT_EQ(MeaningOf(playfile_.FrameType()), NEW_FRAME_TYPES::FRAME_TEXT);
    EXPECT_EQ(playfile_.DelayTime(), 3);
    EXPECT_EQ(playfile_.FontHeight(), 16);
    EXPECT_EQ(playfile_.PrefixCode(), 5001);
    EXPECT_EQ(playfile_.SuffixCode(), 5000);
    EXPECT_EQ(playfile_.TotalDisplayFramesUsedForThisFrame(), 1);
    EXPECT_EQ(playfile_.RowHeightForGrid(), 40);
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
    EXPECT_EQ(playfile_.CurrentLineText(), "HELLO");
    EXPECT_EQ(playfile_.CurrentLineFont(), 6);
    EXPECT_TRUE(!playfile_.Scrolling() && !playfile_.Inverse() && playfile_.Blinking() && !playfile_.Merge());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(PlayfileLoad, ConvertsWhatOtherPlacesAndVersionsWrote) {
    using P = FrameInfoClass;
    expectRead("a decimal comma", kDelay, "1,25", &P::DelayTime, 1.25);
    expectRead("a font height with decimals", kFontHeightPlace, "15.6", &P::FontHeight, 16);
    expectRead("half a dot goes to the even height", kFontHeightPlace, "12.5", &P::FontHeight, 12);
    expectRead("the old wipe as prefix", kPrefix, "2001", &P::PrefixCode, 2000);
    expectRead("the old wipe as suffix", kSuffix, "2001", &P::SuffixCode, 2000);
    expectRead("9999 on one side only is kept", kPrefix, "9999", &P::SuffixCode, 5000);
    expectRead("a flag as a number", kScrolling, "-1", &P::Scrolling, true);
    expectRead("fast scrolling stored as -1 reads as off", kFastScrollPlace, "-1", &P::FastScroll, false);
    expectRead("an overlay stored as -1 reads as on", kOverlay, "-1", &P::OverlayFrame, true);
    expectRead("as-is stored as -1 reads as stored", kSendAsIs, "-1", &P::SendCommandFileAsIs, -1);
}

TEST_F(PlayfileLoad, TurnsTheOldFont2IntoACustomFont) {
    WriteSetting("Vistrel3", "Settings", "AppPath", folder_);
    ASSERT_TRUE(loadWith(kFont, "2"));
    EXPECT_EQ(playfile_.LineFontSize(), 12);
    EXPECT_EQ(playfile_.LineCustomFont(), JoinPath(JoinPath(folder_, "CustomFonts"), "FNT4X8.CFF"));
}

TEST_F(PlayfileLoad, FindsMissingFilesBesideThePlayfile) {
    const std::string elsewhere = host_.inLibrary("here.bmp");
    host_.machine.files().put(elsewhere, "picture");
    host_.machine.files().put(JoinPath(folder_, "here.bmp"), "another");
    host_.machine.files().put(JoinPath(folder_, "Moved.bmp"), "picture");
    const struct {
        const char* why;
        std::string reference, found;
    } cases[] = {
        {"a reference that holds is kept", elsewhere, elsewhere},
        {"a file that moved along", "Q:\\Signs\\Moved.bmp", JoinPath(folder_, "Moved.bmp")},
        {"spelt otherwise", "Q:\\Signs\\MOVED.BMP", JoinPath(folder_, "Moved.bmp")},
        {"a name alone says no place", "Moved.bmp", JoinPath(folder_, "Moved.bmp")},
        {"a file that is nowhere", "Q:\\Signs\\gone.bmp", "Q:\\Signs\\gone.bmp"},
        {"a folder is no file", folder_, folder_},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        EXPECT_TRUE(loadWith(kPicture, row.reference));
        EXPECT_EQ(playfile_.PicturefileName(), row.found);
        EXPECT_TRUE(loadWith(kCommandFile, row.reference));
        EXPECT_EQ(playfile_.commandfile(), row.found);
    }
}

TEST_F(PlayfileLoad, KeepsTheFramesReadBeforeDamage) {
    const std::string twoFrames = " 2 \r\n" + playfileText(onePlayfileFrame()).substr(5);
    EXPECT_FALSE(load(twoFrames)) << "no second frame";
    EXPECT_FALSE(load(twoFrames + "\"\"\r\n\"soon\"\r\n")) << "a delay that is no number";
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{62, 13}));
    EXPECT_EQ(playfile_.TotalFrames(), 2);
    EXPECT_EQ(playfile_.CurrentLineText(), "HELLO");
}

TEST_F(PlayfileLoad, RefusesCountsThatMakeNoSense) {
    for (const char* text : {"", "\r\n", " -1 \r\n", " 40000 \r\n", "PK\x03\x04"})
        EXPECT_FALSE(load(text)) << text;
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{62, 13, 9, 6, 13}));
    EXPECT_EQ(playfile_.TotalFrames(), 20);
    EXPECT_FALSE(loadWith(kLineCount, "-1"));
    EXPECT_FALSE(loadWith(kLineCount, "32767"));
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 62}));
    EXPECT_TRUE(load(" 0 \r\n")) << "a playfile without frames is one";
    EXPECT_EQ(playfile_.TotalFrames(), 0);
}

TEST_F(PlayfileLoad, SurvivesBeingCutShortAtEveryByteAndIgnoresWhatFollowsTheLastFrame) {
    const std::string whole = playfileText(onePlayfileFrame());
    // Only the closing quote and line end of the last value can be missing without loss.
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(load(whole.substr(0, size)), size >= whole.size() - 3) << size;
    EXPECT_TRUE(load(whole + "\"more\"\r\n"));
}

TEST_F(PlayfileLoad, RemembersTheNameOfAFileThatCannotBeOpened) {
    ASSERT_TRUE(load(playfileText(onePlayfileFrame())));
    const std::string missing = host_.inLibrary("missing.playfile");
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk(missing));
    EXPECT_EQ(playfile_.CurrentFileName(), missing);
    EXPECT_EQ(playfile_.CurrentLineText(), "HELLO") << "the frames stay";
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk(JoinPath(host_.inLibrary("nowhere"), "a.playfile")));
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{53, 76}));
}

} // namespace
} // namespace qrtVistrelClasses4
