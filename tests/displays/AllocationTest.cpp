// Operations that run often or on many records must not allocate memory.
#include "Allocations.h"
#include "HostTest.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>

namespace qrtVistrelClasses4 {
namespace {

struct Allocation : HostTest {
    const std::string text = std::string(100, 'x'); ///< Longer than strings without memory of their own.
};

TEST_F(Allocation, IsNotMadeForTheTraceAroundAProperty) {
    FrameInfoClass frames;
    frames.CurrentFrame(1);
    frames.FrameName(text);
    ASSERT_TRUE(TraceIsOn());
    EXPECT_EQ(AllocationsIn([&] { frames.DelayTime(frames.DelayTime() + 1.25); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.FrameName(text); }), 0) << "the old text left room for the new one";
    EXPECT_EQ(AllocationsIn([&] { (void)frames.FrameName(); }), 1) << "only the text that is handed out";
}

TEST_F(Allocation, IsNotMadeForWhatMovesOrIsPassedBy) {
    FrameInfoClass frames;
    DisplayDatabaseClass displays;
    frames.TotalFrames(500);
    for (std::int16_t number = 1; number <= 500; ++number) {
        frames.CurrentFrame(number);
        frames.FrameName(text);
        displays.AddNewDisplay(text + std::to_string(number));
    }
    EXPECT_LE(AllocationsIn([&] { frames.InsertFrame(); }), 2) << "a longer array, and the new frame's line";
    EXPECT_EQ(AllocationsIn([&] { frames.MoveFrame(1, 501); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.DeleteCurrentFrame(); }), 0);
    EXPECT_LE(AllocationsIn([&] { displays.FindDisplayByName(text); }), 1) << "the name in upper case";
}

} // namespace
} // namespace qrtVistrelClasses4
