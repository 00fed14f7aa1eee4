// The trace stands around every property, so it must not cost memory.
#include "Allocations.h"
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(TracedProperty, AllocatesNothingForTheTrace) {
    const TestHost host;
    const std::string text(100, 'x'); // longer than what a string holds without memory of its own
    FrameInfoClass frames;
    frames.CurrentFrame(1);
    frames.FrameName(text);

    ASSERT_TRUE(TraceIsOn());
    EXPECT_EQ(AllocationsIn([&] { frames.DelayTime(1.25); }), 0);
    EXPECT_EQ(AllocationsIn([&] { EXPECT_EQ(frames.DelayTime(), 1.25); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.FrameName(text); }), 0) << "the old text left room for the new one";
    EXPECT_EQ(AllocationsIn([&] { (void)frames.FrameName(); }), 1) << "only the text that is handed out";
}

} // namespace
} // namespace qrtVistrelClasses4
