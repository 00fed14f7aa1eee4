#include "PlayfileRecords.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

/// A property by its overload pair.
template <class Value, class Given>
struct Property {
    Value (FrameInfoClass::*read)();
    void (FrameInfoClass::*write)(Given);
};
template <class Value, class Given>
Property(Value (FrameInfoClass::*)(), void (FrameInfoClass::*)(Given)) -> Property<Value, Given>;
// clang-format off
#define P(name) Property{&FrameInfoClass::name, &FrameInfoClass::name}
constexpr std::tuple kTracedProperties{
    P(FrameName), P(PrefixCode), P(SuffixCode), P(DelayTime), P(commandfile), P(FontWidth), P(FontHeight), P(Scrolling),
    P(LineFontSize), P(PicturefileName), P(PictureFileType), P(PictureFileDisplay), P(TotalDisplayFramesUsedForThisFrame)};
constexpr std::tuple kUntracedProperties{
    P(RowHeightForGrid), P(AVIFrames), P(AudioFile), P(WinBackColor), P(FixedNumberOfLines), P(OverlayFrame),
    P(FastScroll), P(LineCustomFont), P(Blinking), P(Inverse), P(Merge)};
#undef P
// clang-format on
constexpr std::tuple kAllProperties = std::tuple_cat(kTracedProperties, kUntracedProperties);

/// Calls `visit(property, number)` for each of them, numbers counting from 1.
template <class Properties, class Visit>
void forEach(const Properties& properties, Visit visit) {
    int number = 0;
    std::apply([&](const auto&... property) { (visit(property, ++number), ...); }, properties);
}

/// Tells numbers below 31 and seeds below 5 apart; flags only by their pattern over the seeds.
template <class Value>
Value valueFor(int seed, int number) {
    if constexpr (std::is_same_v<Value, std::string>)
        return "text " + std::to_string(100 * seed + number);
    else if constexpr (std::is_same_v<Value, bool>)
        return ((number >> seed) & 1) != 0;
    else
        return static_cast<Value>((100 * seed + number) * (sizeof(Value) > 2 ? 65536.25 : 1));
}

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
    playfile_.CurrentFrame(20);
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameInfo, KeepsThePropertiesOfThePlayfileApart) {
    playfile_.DisplayWidth(80);
    playfile_.DisplayHeight(16);
    playfile_.CurrentFileName("a.playfile");
    EXPECT_EQ(playfile_.DisplayWidth(), 80);
    EXPECT_EQ(playfile_.DisplayHeight(), 16);
    EXPECT_EQ(playfile_.CurrentFileName(), "a.playfile");
}

TEST_F(FrameInfo, KeepsEveryPropertyOfEachFrameAndLineApart) {
    const std::int16_t numbers[] = {1, 2, 3, 4, 20}; // of a frame, and of a line in it
    const auto select = [&](int seed) {
        playfile_.CurrentFrame(numbers[seed]);
        playfile_.TotalLinesAllowed(20);
        playfile_.CurrentLineNumber(numbers[seed]);
    };
    for (int seed = 0; seed < 5; ++seed) {
        select(seed);
        forEach(kAllProperties, [&]<class Value, class Given>(Property<Value, Given> property, int number) {
            (playfile_.*property.write)(valueFor<Value>(seed, number));
        });
    }
    for (int seed = 0; seed < 5; ++seed) {
        select(seed);
        forEach(kAllProperties, [&]<class Value, class Given>(Property<Value, Given> property, int number) {
            EXPECT_EQ((playfile_.*property.read)(), valueFor<Value>(seed, number)) << number;
        });
    }
    playfile_.CurrentLineNumber(19);
    EXPECT_EQ(playfile_.LineCustomFont(), "") << "of another line";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameInfo, HoldsThePhotoRealisticEffectOnBothSidesOrOnNone) {
    const auto codes = [&] { return std::pair<int, int>(playfile_.PrefixCode(), playfile_.SuffixCode()); };
    playfile_.CurrentFrame(1);
    playfile_.PrefixCode(9999);
    EXPECT_EQ(codes(), std::pair(9999, 9999)) << "the prefix takes the suffix along";
    playfile_.PrefixCode(4);
    EXPECT_EQ(codes(), std::pair(4, 0)) << "leaving it clears the other";
    playfile_.SuffixCode(9999);
    EXPECT_EQ(codes(), std::pair(9999, 9999)) << "the suffix takes the prefix along";
    playfile_.SuffixCode(10);
    EXPECT_EQ(codes(), std::pair(0, 10)) << "leaving it clears the other";
    playfile_.PrefixCode(5);
    EXPECT_EQ(codes(), std::pair(5, 10)) << "other codes do not touch each other";
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

TEST_F(FrameInfo, TrapsACursorOutsideTheFramesInTracedPropertiesOnly) {
    for (const int cursor : {0, -1, 21, 32767}) {
        playfile_.CurrentFrame(static_cast<std::int16_t>(cursor));
        forEach(kTracedProperties, [&]<class Value, class Given>(Property<Value, Given> property, int) {
            (playfile_.*property.write)(Value());
            EXPECT_EQ((playfile_.*property.read)(), Value());
            EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
        });
        forEach(kUntracedProperties, [&]<class Value, class Given>(Property<Value, Given> property, int) {
            EXPECT_EQ(thrownBy([&] { (playfile_.*property.write)(Value()); }), 9);
            EXPECT_EQ(thrownBy([&] { (playfile_.*property.read)(); }), 9);
        });
        EXPECT_EQ(thrownBy([&] { playfile_.SendCommandFileAsIs(true); }), 9);
        EXPECT_EQ(playfile_.CurrentLineText(), "") << "reading a line's text forgives";
        EXPECT_TRUE(host_.reports.all.empty());
        playfile_.TotalLinesAllowed(5);
        EXPECT_EQ(playfile_.TotalLinesAllowed(), 0);
        EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
    }
}

TEST_F(FrameInfo, ForgivesALineNumberBeyondTheLinesOnlyForTheText) {
    playfile_.CurrentFrame(1);
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
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9}) << "storing below the lines is not forgiven";
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
    EXPECT_EQ(playfile_.FrameName() + playfile_.CurrentLineText(), "fivethird");
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
    putRecords(playfile_, filledFrames("AB"));
    playfile_.InitFrame(2);
    EXPECT_EQ(recordsOf(playfile_), (Records{filledFrame('A'), emptied(filledFrame('B'))}));
    playfile_.InitFrame(21);
    EXPECT_EQ(host_.reports.all.at(0).procedure.module, "FrameInfoClass.cls");
    EXPECT_EQ(host_.reports.all.at(0).procedure.arguments, "(LineToInit=21)");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9});
}

TEST_F(FrameInfo, RefusesNumbersThatDoNotFit) {
    playfile_.CurrentFrame(1);
    playfile_.FrameType(StoredFrameType(NEW_FRAME_TYPES::FRAME_GRAPHICTEXT));
    playfile_.FrameType(FRAME_TYPES{32768});
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(MeaningOf(playfile_.FrameType()), NEW_FRAME_TYPES::FRAME_GRAPHICTEXT);
    EXPECT_EQ(playfile_.FrameType(), FRAME_TYPES::FRAME_TEXT) << "the two numberings disagree";
    playfile_.FixedNumberOfLines(32768);
    EXPECT_EQ(thrownBy([&] { playfile_.FixedNumberOfLines(); }), 6);
    playfile_.DelayTime(std::numeric_limits<double>::infinity());
    playfile_.DelayTime(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6}));
    EXPECT_EQ(playfile_.DelayTime(), 0);
}

} // namespace
} // namespace qrtVistrelClasses4
