#include "playfile/FrameInfoClass.h"

#include "TestHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

class FrameInfo : public testing::Test {
protected:
    TestHost host_;
    FrameInfoClass playfile_;
};

TEST_F(FrameInfo, StartsWithTwentyFramesOfOneLine) {
    EXPECT_EQ(playfile_.ClassDebugID(), 0);
    EXPECT_EQ(playfile_.TotalFrames(), 20);
    EXPECT_EQ(playfile_.TotalFramesAllowed(), 1048);
    EXPECT_EQ(playfile_.CurrentFrame(), 0);
    EXPECT_EQ(playfile_.CurrentLineNumber(), 1);
    EXPECT_FALSE(playfile_.PlayFileHasChanged() || playfile_.IsLegacy());
    for (std::int16_t number = 1; number <= 20; ++number) {
        playfile_.CurrentFrame(number);
        EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameInfo, KeepsEveryPropertyOfEachFrameAndLineApart) {
    const auto fill = [&](std::int16_t seed) {
        playfile_.FrameName("name" + std::to_string(seed));
        playfile_.FrameType(StoredFrameType(NEW_FRAME_TYPES::FRAME_GRAPHICTEXT));
        playfile_.PrefixCode(seed);
        playfile_.SuffixCode(static_cast<std::int16_t>(-seed));
        playfile_.DelayTime(seed / 4.0);
        playfile_.PicturefileName("p" + std::to_string(seed));
        playfile_.commandfile("c" + std::to_string(seed));
        playfile_.PictureFileType(static_cast<std::int16_t>(seed + 1));
        playfile_.PictureFileDisplay(static_cast<std::int16_t>(seed + 2));
        playfile_.FontWidth(static_cast<std::int16_t>(seed + 3));
        playfile_.FontHeight(static_cast<std::int16_t>(seed + 4));
        playfile_.TotalDisplayFramesUsedForThisFrame(static_cast<std::int16_t>(seed + 5));
        playfile_.RowHeightForGrid(static_cast<std::int16_t>(seed + 6));
        playfile_.AVIFrames(static_cast<std::int16_t>(seed + 7));
        playfile_.AudioFile("a" + std::to_string(seed));
        playfile_.WinBackColor(seed * 65536);
        playfile_.FixedNumberOfLines(seed);
        playfile_.TotalLinesAllowed(2);
        for (std::int16_t line = 1; line <= 2; ++line) {
            playfile_.CurrentLineNumber(line);
            playfile_.CurrentLineText("t" + std::to_string(seed + line));
            playfile_.LineFontSize(static_cast<std::int16_t>(seed + line));
            playfile_.LineCustomFont("f" + std::to_string(seed + line));
            playfile_.Scrolling(line == 1);
            playfile_.Blinking(line == 2);
            playfile_.Inverse(line == 1);
            playfile_.Merge(line == 2);
        }
    };
    for (std::int16_t frame : {std::int16_t{1}, std::int16_t{20}}) {
        playfile_.CurrentFrame(frame);
        fill(frame);
    }
    playfile_.CurrentFrame(1);
    EXPECT_EQ(playfile_.FrameName(), "name1");
    EXPECT_EQ(MeaningOf(playfile_.FrameType()), NEW_FRAME_TYPES::FRAME_GRAPHICTEXT);
    EXPECT_EQ(playfile_.FrameType(), FRAME_TYPES::FRAME_TEXT) << "the two numberings disagree";
    EXPECT_EQ(playfile_.PrefixCode(), 1);
    EXPECT_EQ(playfile_.SuffixCode(), -1);
    EXPECT_EQ(playfile_.DelayTime(), 0.25);
    EXPECT_EQ(playfile_.PicturefileName() + playfile_.commandfile() + playfile_.AudioFile(), "p1c1a1");
    EXPECT_EQ(playfile_.PictureFileType(), 2);
    EXPECT_EQ(playfile_.PictureFileDisplay(), 3);
    EXPECT_EQ(playfile_.FontWidth(), 4);
    EXPECT_EQ(playfile_.FontHeight(), 5);
    EXPECT_EQ(playfile_.TotalDisplayFramesUsedForThisFrame(), 6);
    EXPECT_EQ(playfile_.RowHeightForGrid(), 7);
    EXPECT_EQ(playfile_.AVIFrames(), 8);
    EXPECT_EQ(playfile_.WinBackColor(), 65536);
    EXPECT_EQ(playfile_.FixedNumberOfLines(), 1);
    playfile_.CurrentLineNumber(2);
    EXPECT_EQ(playfile_.CurrentLineText() + playfile_.LineCustomFont(), "t3f3");
    EXPECT_EQ(playfile_.CurrentLineFont(), 3);
    EXPECT_EQ(playfile_.LineFontSize(), 3);
    EXPECT_TRUE(!playfile_.Scrolling() && playfile_.Blinking() && !playfile_.Inverse() && playfile_.Merge());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameInfo, HoldsThePhotoRealisticEffectOnBothSidesOrOnNone) {
    struct Step {
        const char* why;
        std::function<void()> act;
        std::int16_t prefix, suffix;
    };
    const Step steps[] = {
        {"the prefix takes the suffix along", [&] { playfile_.PrefixCode(9999); }, 9999, 9999},
        {"leaving it clears the other", [&] { playfile_.PrefixCode(4); }, 4, 0},
        {"the suffix takes the prefix along", [&] { playfile_.SuffixCode(9999); }, 9999, 9999},
        {"leaving it clears the other", [&] { playfile_.SuffixCode(10); }, 0, 10},
        {"other codes do not touch each other", [&] { playfile_.PrefixCode(5); }, 5, 10},
    };
    playfile_.CurrentFrame(1);
    for (const Step& step : steps) {
        SCOPED_TRACE(step.why);
        step.act();
        EXPECT_EQ(playfile_.PrefixCode(), step.prefix);
        EXPECT_EQ(playfile_.SuffixCode(), step.suffix);
    }
}

TEST_F(FrameInfo, StoresFrameFlagsAsOneAndReadsThemEachInItsWay) {
    playfile_.CurrentFrame(1);
    playfile_.OverlayFrame(true);
    playfile_.FastScroll(true);
    playfile_.SendCommandFileAsIs(true);
    EXPECT_TRUE(playfile_.OverlayFrame());
    EXPECT_TRUE(playfile_.FastScroll());
    EXPECT_EQ(playfile_.SendCommandFileAsIs(), 1);
    playfile_.SendCommandFileAsIs(false);
    EXPECT_EQ(playfile_.SendCommandFileAsIs(), 0);
}

/// The error number that `act` throws; 0 for none.
int thrownBy(const std::function<void()>& act) {
    try {
        act();
        return 0;
    } catch (const RuntimeError& error) {
        return error.number();
    }
}

TEST_F(FrameInfo, TrapsACursorOutsideTheFramesInTracedProperties) {
    for (const int cursor : {0, -1, 21, 32767}) {
        playfile_.CurrentFrame(static_cast<std::int16_t>(cursor));
        playfile_.FrameName("lost");
        playfile_.Scrolling(true);
        playfile_.TotalLinesAllowed(5);
        EXPECT_EQ(playfile_.FrameName(), "");
        EXPECT_EQ(playfile_.DelayTime(), 0);
        EXPECT_EQ(playfile_.TotalLinesAllowed(), 0);
        EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9, 9, 9, 9, 9}));
        EXPECT_EQ(playfile_.CurrentLineText(), "");
        EXPECT_TRUE(host_.reports.all.empty()) << "reading a line's text forgives";
    }
}

TEST_F(FrameInfo, ThrowsFromUntracedPropertiesToTheCaller) {
    const std::function<void()> accesses[] = {
        [&] { playfile_.AudioFile(); },          [&] { playfile_.AudioFile("a"); },
        [&] { playfile_.RowHeightForGrid(1); },  [&] { playfile_.OverlayFrame(); },
        [&] { playfile_.AVIFrames(); },          [&] { playfile_.SendCommandFileAsIs(true); },
        [&] { playfile_.FastScroll(); },         [&] { playfile_.WinBackColor(1); },
        [&] { playfile_.FixedNumberOfLines(); }, [&] { playfile_.Blinking(); },
        [&] { playfile_.Inverse(true); },        [&] { playfile_.Merge(); },
        [&] { playfile_.LineCustomFont("f"); },
    };
    for (const auto& access : accesses)
        EXPECT_EQ(thrownBy(access), 9);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameInfo, ForgivesALineNumberBeyondTheLinesOnlyForTheText) {
    playfile_.CurrentFrame(1);
    playfile_.TotalLinesAllowed(2);
    playfile_.CurrentLineNumber(5);
    playfile_.CurrentLineText("nowhere");
    EXPECT_EQ(playfile_.CurrentLineText(), "");
    EXPECT_TRUE(host_.reports.all.empty());
    EXPECT_FALSE(playfile_.Scrolling());
    playfile_.LineFontSize(3);
    EXPECT_EQ(playfile_.CurrentLineFont(), 0);
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9, 9}));
    EXPECT_EQ(thrownBy([&] { playfile_.Inverse(true); }), 9);
    playfile_.CurrentLineNumber(0);
    playfile_.CurrentLineText("nowhere");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9})
        << "a number below the lines is not forgiven when storing";
}

TEST_F(FrameInfo, ReadsNothingFromAFrameWithoutLinesAndStoresNothingInIt) {
    playfile_.CurrentFrame(3);
    playfile_.TotalLinesAllowed(0);
    playfile_.Scrolling(true);
    playfile_.LineCustomFont("f");
    playfile_.CurrentLineText("t");
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 0);
    EXPECT_FALSE(playfile_.Scrolling() || playfile_.Merge());
    EXPECT_EQ(playfile_.LineCustomFont() + playfile_.CurrentLineText(), "");
    playfile_.MakeLineVarsValid();
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1) << "an empty line array counts as never sized";
    EXPECT_EQ(playfile_.CurrentLineText(), "");
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameInfo, GrowsAndShrinksAtItsEnd) {
    playfile_.CurrentFrame(5);
    playfile_.FrameName("five");
    playfile_.TotalLinesAllowed(3);
    playfile_.CurrentLineNumber(3);
    playfile_.CurrentLineText("third");
    playfile_.TotalFrames(5);
    EXPECT_EQ(playfile_.TotalFrames(), 5);
    playfile_.TotalFrames(30);
    EXPECT_EQ(playfile_.TotalFrames(), 30);
    EXPECT_EQ(playfile_.FrameName() + playfile_.CurrentLineText(), "fivethird");
    playfile_.CurrentFrame(30);
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
    playfile_.TotalFrames(-1);
    playfile_.TotalLinesAllowed(-1);
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
    EXPECT_EQ(playfile_.TotalFrames(), 30);
    playfile_.TotalFrames(0);
    EXPECT_EQ(playfile_.TotalFrames(), 0);
    playfile_.TotalFrames(32767);
    playfile_.CurrentFrame(32767);
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
}

TEST_F(FrameInfo, EmptiesAFrameButKeepsItsLook) {
    playfile_.CurrentFrame(2);
    playfile_.FrameName("n");
    playfile_.AudioFile("a");
    playfile_.PicturefileName("p");
    playfile_.commandfile("c");
    playfile_.FrameType(FRAME_TYPES::FRAME_CMD);
    playfile_.DelayTime(2);
    playfile_.PrefixCode(9999);
    playfile_.FontHeight(16);
    playfile_.OverlayFrame(true);
    playfile_.WinBackColor(255);
    playfile_.TotalLinesAllowed(4);
    playfile_.CurrentLineText("t");
    playfile_.InitFrame(2);
    EXPECT_EQ(playfile_.FrameName() + playfile_.AudioFile() + playfile_.PicturefileName() +
                  playfile_.commandfile() + playfile_.CurrentLineText(),
              "");
    EXPECT_EQ(playfile_.FrameType(), FRAME_TYPES::FRAME_BLANK);
    EXPECT_EQ(playfile_.DelayTime(), 0);
    EXPECT_EQ(playfile_.PrefixCode() + playfile_.SuffixCode(), 0);
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
    EXPECT_EQ(playfile_.FontHeight(), 16);
    EXPECT_TRUE(playfile_.OverlayFrame());
    EXPECT_EQ(playfile_.WinBackColor(), 255);
    playfile_.InitFrame(21);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9});
}

TEST_F(FrameInfo, RefusesNumbersThatDoNotFit) {
    playfile_.CurrentFrame(1);
    playfile_.FrameType(FRAME_TYPES{2});
    playfile_.FrameType(FRAME_TYPES{32768});
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(playfile_.FrameType(), FRAME_TYPES{2});
    playfile_.FixedNumberOfLines(32768);
    EXPECT_EQ(thrownBy([&] { playfile_.FixedNumberOfLines(); }), 6);
    playfile_.FixedNumberOfLines(-7);
    EXPECT_EQ(playfile_.FixedNumberOfLines(), -7);
    playfile_.DelayTime(std::numeric_limits<double>::infinity());
    playfile_.DelayTime(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6}));
    EXPECT_EQ(playfile_.DelayTime(), 0);
}

TEST_F(FrameInfo, AppearsOnTheTraceWithKindNameAndValue) {
    KeptTrace trace;
    trace.withModules = true;
    const ScopedTraceRecorder scope(trace);
    playfile_.CurrentFrame(5);
    playfile_.InitFrame(3);
    playfile_.DelayTime(1.5);
    playfile_.Scrolling(true);
    playfile_.FrameName();
    playfile_.FrameType(FRAME_TYPES::FRAME_TEXT);
    Texts entries;
    for (const std::string& line : trace.lines)
        if (line.front() == '>')
            entries.push_back(line);
    EXPECT_EQ(entries, (Texts{"> FrameInfoClass.cls Property (Let) CurrentFrame (vData=5)",
                              "> FrameInfoClass.cls Sub InitFrame (LineToInit=3)",
                              "> FrameInfoClass.cls Property (Let) DelayTime (vData=1.5)",
                              "> FrameInfoClass.cls Property (Let) Scrolling (vData=True)",
                              "> FrameInfoClass.cls Property (Get) FrameName ()",
                              "> FrameInfoClass.cls Property (Let) FrameType (vData=3)"}));
    EXPECT_EQ(trace.lines.size(), 2 * entries.size());
    trace.lines.clear();
    playfile_.AudioFile("untraced");
    playfile_.Merge();
    playfile_.PlayFileHasChanged(true);
    playfile_.SetSuppressMessages(true);
    EXPECT_TRUE(trace.lines.empty());
}

TEST_F(FrameInfo, IsCreatedAndDestroyedOnTheTrace) {
    KeptTrace trace;
    {
        const ScopedTraceRecorder scope(trace);
        const FrameInfoClass another;
    }
    EXPECT_EQ(trace.lines,
              (Texts{"> Sub Class_Initialize ()", "> Sub MakeLineVarsValid ()", "< Sub MakeLineVarsValid ()",
                     "< Sub Class_Initialize ()", "> Sub Class_Terminate ()", "< Sub Class_Terminate ()"}));
}

} // namespace
} // namespace qrtVistrelClasses4
