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
    struct Case {
        const char* why;
        int place;
        const char* value;
        double expected;
        double (*actual)(FrameInfoClass&);
    };
    const Case cases[] = {
        {"a decimal comma", kDelay, "1,25", 1.25, [](FrameInfoClass& p) { return p.DelayTime(); }},
        {"a font height with decimals", kFontHeightPlace, "15.6", 16,
         [](FrameInfoClass& p) { return double(p.FontHeight()); }},
        {"half a dot goes to the even height", kFontHeightPlace, "12.5", 12,
         [](FrameInfoClass& p) { return double(p.FontHeight()); }},
        {"the old wipe as prefix", kPrefix, "2001", 2000,
         [](FrameInfoClass& p) { return double(p.PrefixCode()); }},
        {"the old wipe as suffix", kSuffix, "2001", 2000,
         [](FrameInfoClass& p) { return double(p.SuffixCode()); }},
        {"a flag as a number", kScrolling, "-1", 1, [](FrameInfoClass& p) { return double(p.Scrolling()); }},
        {"a flag in capitals", kScrolling, "TRUE", 1,
         [](FrameInfoClass& p) { return double(p.Scrolling()); }},
        {"fast scrolling stored as -1 reads as off", kFastScrollPlace, "-1", 0,
         [](FrameInfoClass& p) { return double(p.FastScroll()); }},
        {"an overlay stored as -1 reads as on", kOverlay, "-1", 1,
         [](FrameInfoClass& p) { return double(p.OverlayFrame()); }},
        {"as-is stored as -1 reads as stored", kSendAsIs, "-1", -1,
         [](FrameInfoClass& p) { return double(p.SendCommandFileAsIs()); }},
        {"9999 on one side only is kept as read", kPrefix, "9999", 9999,
         [](FrameInfoClass& p) { return double(p.PrefixCode()); }},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        EXPECT_TRUE(loadWith(row.place, row.value));
        EXPECT_EQ(row.actual(playfile_), row.expected);
    }
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
    struct Case {
        const char* why;
        std::string reference, found;
    };
    const Case cases[] = {
        {"a reference that holds is kept", elsewhere, elsewhere},
        {"a file that moved along", "Q:\\Signs\\Moved.bmp", JoinPath(folder_, "Moved.bmp")},
        {"spelt otherwise", "Q:\\Signs\\MOVED.BMP", JoinPath(folder_, "Moved.bmp")},
        {"a name alone says no place", "Moved.bmp", JoinPath(folder_, "Moved.bmp")},
        {"a file that is nowhere", "Q:\\Signs\\gone.bmp", "Q:\\Signs\\gone.bmp"},
        {"a folder is no file", folder_, folder_},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        EXPECT_TRUE(loadWith(kPicture, row.reference));
        EXPECT_EQ(playfile_.PicturefileName(), row.found);
        EXPECT_TRUE(loadWith(kCommandFile, row.reference));
        EXPECT_EQ(playfile_.commandfile(), row.found);
    }
}

TEST_F(PlayfileLoad, KeepsTheFramesReadBeforeDamage) {
    const std::string whole = playfileText(onePlayfileFrame());
    const std::string two = " 2 \r\n" + whole.substr(5);
    struct Case {
        const char* why;
        std::string text;
        int error;
    };
    const Case cases[] = {
        {"no second frame", two, 62},
        {"a number that is none", two + "\"\"\r\n\"soon\"\r\n", 13},
        {"a delay left empty", two + "\"\"\r\n\"\"\r\n", 13},
        {"a number too large", two + "\"\"\r\n\"1\"\r\n\"1\"\r\n\"\"\r\n\"70000\"\r\n", 6},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        EXPECT_FALSE(load(row.text));
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{row.error});
        EXPECT_EQ(playfile_.TotalFrames(), 2);
        EXPECT_EQ(playfile_.CurrentLineText(), "HELLO");
    }
}

TEST_F(PlayfileLoad, RefusesCountsThatMakeNoSense) {
    struct Case {
        const char* text;
        int error;
    };
    for (const Case& row : {Case{"", 62}, Case{"\r\n", 13}, Case{" -1 \r\n", 9}, Case{" 40000 \r\n", 6},
                            Case{"PK\x03\x04", 13}}) {
        SCOPED_TRACE(row.text);
        EXPECT_FALSE(load(row.text));
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{row.error});
        EXPECT_EQ(playfile_.TotalFrames(), 20);
    }
    EXPECT_FALSE(loadWith(kLineCount, "-1"));
    EXPECT_FALSE(loadWith(kLineCount, "32767"));
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 62}));
    EXPECT_TRUE(load(" 0 \r\n")) << "a playfile without frames is one";
    EXPECT_EQ(playfile_.TotalFrames(), 0);
}

TEST_F(PlayfileLoad, SurvivesBeingCutShortAtEveryByte) {
    const std::string whole = playfileText(onePlayfileFrame());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const bool result = load(whole.substr(0, size));
        // Only the closing quote and line end of the last value can be missing without loss.
        EXPECT_EQ(result, size >= whole.size() - 3) << size;
    }
}

TEST_F(PlayfileLoad, IgnoresWhatFollowsTheLastFrame) {
    EXPECT_TRUE(load(playfileText(onePlayfileFrame()) + "\"more\"\r\n"));
    EXPECT_TRUE(host_.reports.all.empty());
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

TEST_F(PlayfileLoad, NeverTakesTheOlderFormatForThisOne) {
    for (const char* name : {"a.PL2", "a.pl2", "pL2"}) {
        const std::string path = JoinPath(folder_, name);
        host_.machine.files().put(path, playfileText(onePlayfileFrame()));
        EXPECT_FALSE(playfile_.GetPlayfileFromDisk(path));
        EXPECT_EQ(playfile_.TotalFrames(), 20);
        EXPECT_EQ(playfile_.CurrentFileName(), path);
    }
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{321, 321, 321}));
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk(""));
}

} // namespace
} // namespace qrtVistrelClasses4
