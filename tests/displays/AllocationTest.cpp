// What is done often or on many records must not cost memory.
#include "Allocations.h"
#include "TestHost.h"
#include "displays/DisplayDatabaseClass.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

struct Allocation : testing::Test {
    TestHost host;
    const std::string text =
        std::string(100, 'x'); // longer than what a string holds without memory of its own
};

TEST_F(Allocation, IsNotMadeForTheTraceAroundAProperty) {
    FrameInfoClass frames;
    frames.CurrentFrame(1);
    frames.FrameName(text);
    ASSERT_TRUE(TraceIsOn());
    EXPECT_EQ(AllocationsIn([&] { frames.DelayTime(1.25); }), 0);
    EXPECT_EQ(AllocationsIn([&] { EXPECT_EQ(frames.DelayTime(), 1.25); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.FrameName(text); }), 0) << "the old text left room for the new one";
    EXPECT_EQ(AllocationsIn([&] { (void)frames.FrameName(); }), 1) << "only the text that is handed out";
}

TEST_F(Allocation, IsNotMadeForFramesThatMove) {
    constexpr std::int16_t kFrames = 1048;
    FrameInfoClass frames;
    frames.TotalFrames(kFrames);
    for (std::int16_t frame = 1; frame <= kFrames; ++frame) {
        frames.CurrentFrame(frame);
        frames.FrameName(text);
        frames.TotalLinesAllowed(8);
        frames.CurrentLineText(text);
    }
    frames.CurrentFrame(1);
    EXPECT_LE(AllocationsIn([&] { frames.InsertFrame(); }), 2) << "a longer array, and the new frame's line";
    EXPECT_EQ(AllocationsIn([&] { frames.MoveFrame(1, kFrames + 1); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.MoveFrame(kFrames + 1, 1); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.DeleteCurrentFrame(); }), 0);
    EXPECT_TRUE(host.reports.all.empty());
}

TEST_F(Allocation, IsNotMadeForTheSignsThatASearchPasses) {
    constexpr std::int16_t kSigns = 500;
    DisplayDatabaseClass displays;
    for (std::int16_t number = 1; number <= kSigns; ++number)
        displays.AddNewDisplay(text + std::to_string(number));
    const std::string last = std::string(text.size(), 'X') + std::to_string(kSigns);
    EXPECT_EQ(AllocationsIn([&] { EXPECT_EQ(displays.FindDisplayByName(last), kSigns); }), 0);
    EXPECT_EQ(AllocationsIn([&] { EXPECT_EQ(displays.FindDisplayByName(text), -1); }), 0);
}

} // namespace
} // namespace qrtVistrelClasses4
