// Edits move records, whatever they hold: a copy would allocate anew for every text and every frame's lines.
#include "Allocations.h"
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kFrames = 1048;
constexpr std::int16_t kLines = 8;

void fill(FrameInfoClass& frames) {
    const std::string text(100, 'x'); // longer than what a string holds without memory of its own
    frames.TotalFrames(kFrames);
    for (std::int16_t frame = 1; frame <= kFrames; ++frame) {
        frames.CurrentFrame(frame);
        frames.FrameName(text);
        frames.PicturefileName(text);
        frames.TotalLinesAllowed(kLines);
        for (std::int16_t line = 1; line <= kLines; ++line) {
            frames.CurrentLineNumber(line);
            frames.CurrentLineText(text);
        }
    }
}

TEST(EditedFrames, AreMovedNotCopied) {
    TestHost host;
    FrameInfoClass frames;
    fill(frames);
    frames.CurrentFrame(1);

    EXPECT_LE(AllocationsIn([&] { frames.InsertFrame(); }), 2) << "a longer array, and the new frame's line";
    EXPECT_EQ(AllocationsIn([&] { frames.MoveFrame(1, kFrames + 1); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.MoveFrame(kFrames + 1, 1); }), 0);
    EXPECT_EQ(AllocationsIn([&] { frames.DeleteCurrentFrame(); }), 0);
    EXPECT_EQ(frames.TotalFrames(), kFrames);
    EXPECT_EQ(host.reports.takeNumbers(), Numbers());
}

} // namespace
} // namespace qrtVistrelClasses4
