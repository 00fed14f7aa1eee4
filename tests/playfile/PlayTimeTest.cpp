#include <qrtVistrelClasses4/PlayTime.h>

#include "fonts/FontTesting.h"
#include "frame/Conversions.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

using testing::ElementsAre;

class PlayTimes : public HostTest {
protected:
    PlayTimes() {
        files().put(host_.inLibrary("CustomFonts/ten"), HeaderFontBytes(FontOf(16, {"##########"})));
        circumstances_.sign = {80, 40};
        circumstances_.scrollingTextSpeed = 2; // 20, 40 or 80 dots a second
        circumstances_.scrollPauseDelay = 5;
        frame_.FrameType = 2;
        frame_.DelayTime = 2;
        frame_.lines = OneBasedArray<LineRecord>(2);
        for (LineRecord& line : frame_.lines) {
            line.LineFontSize = kCustomFont;
            line.LineCustomFont = "ten";
            line.CurrentLineText = "AAAA"; // of 40 dots
        }
    }
    void putTiming(const std::string& lines) {
        files().put(host_.inLibrary("SignTiming.ini"), "[Timing]\r\n" + lines);
    }
    static Playfile playfileOf(const FrameRecord& frame, std::int32_t frames = 1) {
        Playfile playfile;
        playfile.frames.resize(frames);
        for (FrameRecord& each : playfile.frames)
            each = frame;
        return playfile;
    }
    FrameTime timeOf(const FrameRecord& frame) {
        return PlayTimeOf(playfileOf(frame), circumstances_).frames.at(1);
    }
    /// The likely seconds of the parts of the frame after `change`.
    template <class Change>
    std::string partsAfter(Change change) {
        FrameRecord frame = frame_;
        change(frame);
        const FrameTime time = timeOf(frame);
        std::string parts;
        for (const TimeRange& part : {time.appearing, time.holding, time.scrolling, time.disappearing})
            parts += (parts.empty() ? "" : " ") + NumberToText(part.likely);
        return parts;
    }

    PlayTimeCircumstances circumstances_;
    FrameRecord frame_;
};

TEST_F(PlayTimes, AddUpFromWhatAFrameDoes) {
    const auto withEffects = [&](std::int16_t prefix, std::int16_t suffix) {
        return partsAfter([&](FrameRecord& frame) {
            std::tie(frame.PrefixCode, frame.SuffixCode) = {prefix, suffix};
        });
    };
    EXPECT_EQ(withEffects(5000, 5003), "1 2 0 0.5") << "over the width, over the height";
    EXPECT_EQ(withEffects(11006, 12005), "1 2 0 1") << "fade and twinkle";
    EXPECT_EQ(withEffects(5, 10), "1 2 0 1") << "reveal, whose numbers differ";
    EXPECT_EQ(withEffects(114, 115), "1 2 0 0.5") << "optional effects";
    for (const std::int16_t none :
         std::initializer_list<std::int16_t>{0, 15, 1000, 9999, 20000, 20007, 20100, 4711})
        EXPECT_EQ(withEffects(none, 20001), "0 2 0 0") << none;

    const auto withDelay = [&](double seconds) {
        return partsAfter([&](FrameRecord& frame) { frame.DelayTime = seconds; });
    };
    for (const double absurd : {-1.0, 2e9, std::nan(""), HUGE_VAL})
        EXPECT_EQ(withDelay(absurd), "0 0 0 0") << absurd;

    const auto withScrolling = [&](std::int16_t type, double delay, bool fast) {
        return partsAfter([&](FrameRecord& frame) {
            frame.FrameType = type;
            frame.DelayTime = delay;
            frame.FastScroll = fast ? 1 : 0;
            frame.lines.at(1).Scrolling = frame.lines.at(2).Scrolling = true;
            frame.lines.at(2).CurrentLineText += "AAAA";
        });
    };
    EXPECT_EQ(withScrolling(2, 2, false), "0 2 3 0")
        << "(80 + 80) / 40, two of them within the delay, and the pause";
    EXPECT_EQ(withScrolling(3, 2, true), "0 2 1 0") << "all within the delay";
    EXPECT_EQ(withScrolling(1, 2, false), "0 2 0 0") << "a picture alone";
    EXPECT_EQ(partsAfter([](FrameRecord& frame) {
                  frame.lines = OneBasedArray<LineRecord>(1);
                  frame.lines.at(1).Scrolling = true;
              }),
              "0 2 0 0")
        << "no text";

    circumstances_.aviFixedDelay = true;
    circumstances_.aviDelay = 50;
    const auto withPictures = [&](std::int16_t type, std::int16_t pictures) {
        return partsAfter([&](FrameRecord& frame) {
            std::tie(frame.FrameType, frame.AVIFrames) = {type, pictures};
        });
    };
    EXPECT_EQ(withPictures(1, 30), "0 1.5 0 0");
    EXPECT_EQ(withPictures(1, 1), "0 2 0 0");
    EXPECT_EQ(withPictures(2, 30), "0 2 0 0");
}

TEST_F(PlayTimes, AreOnesThatTheFasterSignsTakeToTheSlowerOnes) {
    EXPECT_EQ(timeOf(frame_).total(), (TimeRange{2, 2, 2})) << "nothing moves";
    frame_.PrefixCode = 5000;
    frame_.lines.at(1).Scrolling = true;
    const FrameTime time = timeOf(frame_);
    EXPECT_EQ(time.appearing, (TimeRange{0.5, 1, 2}));
    EXPECT_EQ(time.scrolling, (TimeRange{0.5, 2, 6.5}))
        << "(80 + 40) / 80, 40 or 20, and pauses of 0.5, 1 or 2.5";

    frame_.PrefixCode = 20003;
    frame_.SuffixCode = 20001;
    frame_.lines.at(1).LineCustomFont = "lost";
    const PlayTime play = PlayTimeOf(playfileOf(frame_, 2), circumstances_);
    EXPECT_THAT(play.starts, ElementsAre(0, 3, 6, 9, 12, 15)) << "2 seconds, and pauses of 1";
    EXPECT_EQ(play.total, (TimeRange{15, 18, 39}));
    EXPECT_EQ(play.timesOf(5), play.frames.at(2));
    ASSERT_EQ(play.faults.size(), 2U);
    EXPECT_EQ(play.faults[0].name, "lost");
}

TEST_F(PlayTimes, TakeWhatAFileSaysOfTheSign) {
    putTiming("scrollspeed2=40\r\nEffectSpeed = 1, 2,4e0\r\nFadeTime=3,2,4\r\nTwinkleTime=1,5\r\n"
              "ScrollSpeed9=0\r\nScrollPauseUnit=soon\r\nScrollSpeed0=1e999\r\nScrollSpeed1=\r\n");
    const SignTimingOutcome read = LoadSignTiming();
    SignTiming expected;
    expected.of(Timing::EffectSpeed) = {1, 2, 4};
    const_cast<Estimate&>(expected.scrollSpeed(2)) = {40, 40, 40};
    EXPECT_EQ(read.timing, expected);
    EXPECT_EQ(&expected.scrollSpeed(-3), &expected.scrollSpeed(0));
    EXPECT_EQ(&expected.scrollSpeed(100), &expected.of(Timing::ScrollSpeed9));
    std::string bad;
    for (const BadTiming& value : read.bad)
        bad.append(value.key).append(" ").append(value.text) += "; ";
    EXPECT_EQ(bad,
              "ScrollSpeed0 1e999; ScrollSpeed9 0; ScrollPauseUnit soon; FadeTime 3,2,4; TwinkleTime 1,5; ");
}

TEST(SignTimings, AreDocumentedAsTheyAre) {
    std::string table;
    for (const auto& [key, unit, meaning, assumed] : kTimingRows) {
        table.append("| `").append(key).append("` | ").append(meaning);
        table += unit == TimingUnit::seconds ? " | seconds" : " | dots a second";
        for (const double value : {assumed.low, assumed.likely, assumed.high})
            table += " | " + NumberToText(value);
        table += " |\n";
    }
    std::ifstream page(QRT_SAMPLES_FOLDER "/../docs/formats/sign-timing.md");
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(page), {}),
                testing::HasSubstr("|---|\n" + table + "\n"));
}

TEST_F(PlayTimes, OfTheClassUseTheSettingsOfTheMachine) {
    FrameInfoClass playfile;
    frame_.PrefixCode = 5000;
    playfile.Adopt(playfileOf(frame_));
    EXPECT_EQ(playfile.WhatsTheTotalPlayTime(), 2 + 128 / 80.0) << "the width that preferences start with";
    playfile.DisplayWidth(40);
    EXPECT_EQ(playfile.WhatsTheTotalPlayTime(), 2.5);
    putTiming("EffectSpeed=10\r\nFadeTime=long");
    EXPECT_EQ(playfile.WhatsTheTotalPlayTime(), 6);
    ASSERT_EQ(host_.reports.all.size(), 1U);
    EXPECT_TRUE(host_.reports.all[0].error.isQuiet());
    EXPECT_EQ(playfile.LastErrorNumber(), 0) << "the call did what it is for";
    EXPECT_EQ(takeErrors(), Numbers{13});
}

TEST_F(PlayTimes, GoWithTotalsOfWhatIsSent) {
    FrameInfoClass p;
    EXPECT_EQ(p.HowManyScrollingLinesInThisFrame(), 0);
    EXPECT_EQ(p.LastErrorNumber(), 9);
    EXPECT_EQ(takeErrors(), Numbers{9});
    Playfile playfile;
    using Row =
        std::tuple<std::int16_t, std::int16_t, std::int16_t, std::int16_t>; // kind, frames, effect, pictures
    for (const auto& [type, used, prefix, pictures] :
         {Row{0, 9, 0, 0}, Row{2, 0, 0, 9}, Row{3, 2, 0, 9}, Row{3, 2, 9999, 5}, Row{1, -3, 9999, -1},
          Row{4, 7, 0, 0}}) {
        frame_.FrameType = type;
        std::tie(frame_.TotalDisplayFramesUsedForThisFrame, frame_.PrefixCode, frame_.AVIFrames) =
            std::tuple(used, prefix, pictures);
        frame_.lines.at(1).Scrolling = true;
        frame_.lines.at(1).LineCustomFont = type == 3 ? "TEN" : type == 2 ? "x/Ten" : "of no text";
        frame_.lines.at(2).LineCustomFont = type == 2 ? "" : "lost";
        const std::int32_t number = playfile.frames.upperBound() + 1;
        playfile.frames.resize(number);
        playfile.frames.at(number) = frame_;
    }
    p.Adopt(playfile);
    p.CurrentFrame(1);
    EXPECT_EQ(p.HowManyScrollingLinesInThisFrame(), 1);
    EXPECT_EQ(p.HowManyUsedDisplayFramesAreThere(), 0 + 1 + 3 + 5 + 1 + 7);
    EXPECT_THAT(CustomFontsOf(playfile), ElementsAre("x/Ten", "TEN", "lost"));
    EXPECT_EQ(p.HowManyCustomFontsAreThere(), 3);
    EXPECT_EQ(p.WhatsTheTotalSizeOfAllCustomFonts(), HeaderFontBytes(FontOf(16, {"##########"})).size());
    playfile.frames.at(2).TotalDisplayFramesUsedForThisFrame = 32767;
    p.Adopt(playfile);
    EXPECT_EQ(p.HowManyUsedDisplayFramesAreThere(), 0);
    EXPECT_EQ(takeErrors(), Numbers{6});
}

} // namespace
} // namespace qrtVistrelClasses4
