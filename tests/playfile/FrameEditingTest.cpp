// The limits of editing. fuzz/FrameEditing holds the rest against a list.
#include "Allocations.h"
#include "TestHost.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kLargest = 32767;

void putFrames(FrameInfoClass& playfile, const std::string& letters) {
    playfile.TotalFrames(static_cast<std::int16_t>(letters.size()));
    Playfile value = playfile.Value();
    auto letter = letters.begin();
    for (FrameRecord& frame : value.frames)
        frame.FrameName.assign(30, *letter++);
    playfile.Adopt(std::move(value));
}

/// One letter a frame, "_" for one without a name.
std::string order(const FrameInfoClass& playfile) {
    std::string letters;
    for (const FrameRecord& frame : playfile.Value().frames)
        letters += (frame.FrameName + '_').front();
    return letters;
}

struct FrameEditing : testing::Test {
    TestHost host_;
    FrameInfoClass playfile_;
    std::shared_ptr<FrameInfoClass> clipboard_;
};

TEST_F(FrameEditing, HasNoMoreFramesThanNumbers) {
    playfile_.TotalFrames(kLargest);
    for (const bool given : {false, true}) {
        playfile_.CurrentFrame(1);
        playfile_.FrameName("first");
        bool bLast = given;
        playfile_.InsertFrame(bLast);
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
        EXPECT_EQ(std::tuple(bLast, playfile_.TotalFrames(), playfile_.FrameName()),
                  std::tuple(given, kLargest, "first"));
    }
    FrameInfoClass clipboard;
    putFrames(clipboard, "ABC");
    playfile_.TotalFramesAllowed(kLargest);
    playfile_.PasteInfo(kLargest, &clipboard);
    EXPECT_EQ(playfile_.FrameName().front(), 'A') << "at the last number that there is";
    EXPECT_EQ(playfile_.TotalFrames(), kLargest);
    putFrames(playfile_, "AB");
    playfile_.CurrentFrame(kLargest);
    bool bLast = true;
    playfile_.InsertFrame(bLast);
    EXPECT_EQ(playfile_.CurrentFrame(), kLargest) << "no number follows";
    EXPECT_EQ(order(playfile_), "AB_");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

TEST_F(FrameEditing, MayTakeThePlayfileItselfForTheClipboard) {
    putFrames(playfile_, "ABC");
    playfile_.PasteInfo(2, &playfile_);
    EXPECT_EQ(order(playfile_), "AAAABC") << "each frame is read after the one before it was put";
    for (const auto take : {&FrameInfoClass::CopyInfo, &FrameInfoClass::CutInfo}) {
        clipboard_ = std::make_shared<FrameInfoClass>();
        putFrames(*clipboard_, "ABC");
        std::int16_t first = 3;
        std::int16_t last = 2;
        (*clipboard_.*take)(first, last, clipboard_);
        EXPECT_EQ(order(*clipboard_), "BC") << "released by its last owner, it lives until the call is over";
    }
}

/// A host that works on while errors are reported to it.
struct BusyHost final : ErrorReporter {
    void report(const ErrorReport& report) override { act(report); }
    std::function<void(const ErrorReport&)> act;
};

TEST_F(FrameEditing, LetsTheHostChangeBothPlayfilesWhileErrorsArePutBeforeIt) {
    BusyHost host;
    const ScopedErrorReporter scope(host);
    for (const std::int16_t total : std::array<std::int16_t, 2>{0, 30000}) {
        clipboard_ = std::make_shared<FrameInfoClass>();
        host.act = [&](const ErrorReport& report) {
            clipboard_->TotalFrames(0);
            if (report.procedure.procedure.ends_with(" commandfile"))
                playfile_.TotalFrames(total);
        };
        playfile_.PasteInfo(0, clipboard_.get());
        EXPECT_EQ(playfile_.TotalFrames(), total);
    }
}

TEST_F(FrameEditing, CutsNoFrameThatCouldNotBeCopied) {
    BusyHost host;
    const ScopedErrorReporter scope(host);
    for (const bool dropsClipboard : {false, true}) {
        int errors = 0;
        host.act = [&](const ErrorReport&) {
            ++errors;
            if (dropsClipboard)
                clipboard_.reset();
        };
        for (int allocation = 1; allocation == 1 || errors > 0; ++allocation) {
            std::int16_t first = 2, last = 3;
            errors = 0;
            putFrames(playfile_, "ABCDEF");
            FailAllocation(allocation);
            playfile_.CutInfo(first, last, clipboard_);
            EXPECT_EQ(AllocationHasFailed(), errors > 0) << allocation;
            FailAllocation(0);
            const std::string rest = order(playfile_);
            ASSERT_TRUE(rest == "ABCDEF" || (clipboard_ && rest + order(*clipboard_) == "ADEFBC"));
        }
        EXPECT_EQ(order(playfile_), "ADEF") << "older errors do not count";
    }
}

} // namespace
} // namespace qrtVistrelClasses4
