#include <qrtVistrelClasses4/FrameInfoClass.h>

#include "Allocations.h"
#include "TestHost.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <tuple>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Setting a property, or reading it while it is empty.
using Use = void (*)(FrameInfoClass&);
// clang-format off
#define P(name) [](FrameInfoClass& p) { p.name({}); }, [](FrameInfoClass& p) { EXPECT_EQ(p.name(), decltype(p.name())()); }
constexpr Use kTraced[] = {
    P(FrameName), P(PrefixCode), P(SuffixCode), P(DelayTime), P(commandfile), P(FontWidth), P(FontHeight), P(Scrolling),
    P(LineFontSize), P(CurrentLineFont), P(PicturefileName), P(PictureFileType), P(PictureFileDisplay),
    P(TotalDisplayFramesUsedForThisFrame)};
constexpr Use kUntraced[] = {
    P(RowHeightForGrid), P(AVIFrames), P(AudioFile), P(WinBackColor), P(FixedNumberOfLines), P(OverlayFrame),
    P(FastScroll), P(LineCustomFont), P(Blinking), P(Inverse), P(Merge)};
#undef P
// clang-format on

auto throwsError(int number) {
    return testing::Throws<RuntimeError>(testing::Property(&RuntimeError::number, number));
}

struct FrameInfo : testing::Test {
    TestHost host_;
    FrameInfoClass playfile_;
};

TEST_F(FrameInfo, StartsWithTwentyFramesOfOneLine) {
    EXPECT_EQ(std::tuple(playfile_.ClassDebugID(), playfile_.TotalFrames(), playfile_.TotalFramesAllowed(),
                         playfile_.CurrentFrame(), playfile_.CurrentLineNumber(),
                         playfile_.PlayFileHasChanged(), playfile_.IsLegacy()),
              std::tuple(0, 20, 1048, 0, 1, false, false));
    playfile_.CurrentFrame(20);
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1);
    for (std::size_t read = 1; read < std::size(kTraced); read += 2)
        kTraced[read](playfile_);
    for (std::size_t read = 1; read < std::size(kUntraced); read += 2)
        kUntraced[read](playfile_);
    playfile_.PlayFileHasChanged(true);
    EXPECT_TRUE(playfile_.PlayFileHasChanged());
    playfile_.CurrentFileName("a");
    playfile_.DisplayWidth(80);
    playfile_.DisplayHeight(16);
    EXPECT_EQ(std::tuple(playfile_.CurrentFileName(), playfile_.DisplayWidth(), playfile_.DisplayHeight()),
              std::tuple("a", 80, 16));
}

TEST_F(FrameInfo, TrapsACursorOutsideTheFramesInTracedPropertiesOnly) {
    for (const auto cursor : std::vector<std::int16_t>{0, -1, 21, 32767}) {
        playfile_.CurrentFrame(cursor);
        SwitchTrace(cursor > 0);
        for (const Use use : kTraced) {
            use(playfile_);
            EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9});
        }
        for (const Use use : kUntraced)
            EXPECT_THAT([&] { use(playfile_); }, throwsError(9));
        EXPECT_EQ(playfile_.CurrentLineText(), "") << "reading a line's text forgives";
        EXPECT_TRUE(host_.reports.all.empty());
        playfile_.TotalLinesAllowed(5);
        EXPECT_EQ(playfile_.TotalLinesAllowed(), 0);
        EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
    }
}

TEST_F(FrameInfo, ForgivesALineNumberBeyondTheLinesOnlyForTheText) {
    playfile_.CurrentFrame(1);
    playfile_.CurrentLineNumber(2);
    playfile_.CurrentLineText("nowhere");
    EXPECT_EQ(playfile_.CurrentLineText(), "");
    EXPECT_TRUE(host_.reports.all.empty());
    playfile_.LineFontSize(3);
    EXPECT_EQ(playfile_.CurrentLineFont(), 0);
    EXPECT_THAT([&] { playfile_.Inverse(true); }, throwsError(9));
    playfile_.CurrentLineNumber(0);
    playfile_.CurrentLineText("nowhere");
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9, 9})) << "storing below the lines is not forgiven";
}

TEST_F(FrameInfo, ReadsNothingFromAFrameWithoutLinesAndStoresNothingInIt) {
    playfile_.CurrentFrame(3);
    playfile_.TotalLinesAllowed(0);
    playfile_.Scrolling(true);
    playfile_.LineCustomFont("f");
    playfile_.CurrentLineText("t");
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 0);
    EXPECT_FALSE(playfile_.Scrolling());
    playfile_.MakeLineVarsValid();
    EXPECT_EQ(playfile_.TotalLinesAllowed(), 1) << "an empty line array counts as never sized";
    EXPECT_EQ(playfile_.LineCustomFont() + playfile_.CurrentLineText(), "");
}

TEST_F(FrameInfo, RefusesNumbersThatDoNotFit) {
    playfile_.DelayTime(std::numeric_limits<double>::infinity()); // before it looks for the frame
    playfile_.CurrentFrame(1);
    playfile_.FrameType(NEW_FRAME_TYPES::FRAME_GRAPHICTEXT);
    playfile_.FrameType(FRAME_TYPES{32768});
    EXPECT_EQ(playfile_.FrameType(), FRAME_TYPES::FRAME_TEXT) << "the two numberings disagree";
    EXPECT_EQ(playfile_.NewFrameType(), NEW_FRAME_TYPES::FRAME_GRAPHICTEXT);
    playfile_.FixedNumberOfLines(32768);
    EXPECT_THAT([&] { playfile_.FixedNumberOfLines(); }, throwsError(6));
    playfile_.DelayTime(std::numeric_limits<double>::infinity());
    playfile_.DelayTime(std::numeric_limits<double>::quiet_NaN());
    playfile_.InitFrame(21);
    playfile_.TotalFrames(-1);
    playfile_.TotalLinesAllowed(-1);
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6, 6, 6, 9, 9, 9}));
    EXPECT_EQ(std::tuple(playfile_.DelayTime(), playfile_.TotalFrames(), playfile_.TotalLinesAllowed()),
              std::tuple(0, 20, 1));
}

Playfile playfileOf(const std::vector<FrameRecord>& frames) {
    Playfile playfile{OneBasedArray<FrameRecord>(static_cast<std::int32_t>(frames.size())), "", false};
    std::ranges::copy(frames, playfile.frames.begin());
    return playfile;
}

TEST(Playfile, CountsTheKindsByTheirStoredNumbersAndRoundsTheDelayAfterEveryFrame) {
    const TestHost host;
    FrameInfoClass p;
    std::vector<FrameRecord> frames;
    // Each kind occurs a different number of times. 5 and -1 are not kinds, but not blank either.
    for (const int type : {0, 1, 2, 2, 3, 3, 3, 4, 4, 4, 4, 5, -1})
        frames.emplace_back().FrameType = static_cast<std::int16_t>(type);
    p.Adopt(playfileOf(frames));
    EXPECT_EQ(
        (Numbers{p.HowManyUsedFramesAreThere(), p.HowManyGraphicsAreThere(), p.HowManyTextFramesAreThere(),
                 p.HowManyGraphicTextFramesAreThere(), p.HowManyCommandFileFramesAreThere()}),
        (Numbers{12, 1, 2, 3, 4}));
    const auto total = [](const std::vector<double>& delays) {
        std::vector<FrameRecord> added(1);
        added[0].DelayTime = 1000; // blank: never counted
        for (const double delay : delays) {
            added.emplace_back().FrameType = 2;
            added.back().DelayTime = delay;
        }
        return TotalDelaySeconds(playfileOf(added));
    };
    EXPECT_EQ(total({0.5, 0.5, 0.5}), 0) << "halves go to the even number";
    EXPECT_EQ(total({2.5, 0.4}), 2) << "not once at the end";
    EXPECT_EQ(total({-0.5, -1.5, -2}), -4);
    EXPECT_EQ(total({2147483646, 1.4}), 2147483647);
    EXPECT_THROW(total({2147483647, 1, -1}), RuntimeError) << "back from beyond it is too late";
}

TEST(Playfile, KnowsWhetherAnEarlierFrameNeedsTheSameFile) {
    const auto frame = [](const char* picture, const char* command, int display = 0, int prefix = 0) {
        FrameRecord record;
        record.PicturefileName = picture;
        record.commandfile = command;
        record.PictureFileDisplay = static_cast<std::int16_t>(display);
        record.PrefixCode = static_cast<std::int16_t>(prefix);
        return record;
    };
    const struct {
        const char* why;
        FrameRecord earlier, later;
        bool isClone;
    } cases[] = {
        {"no files at all", frame("", ""), frame("", ""), false},
        {"other capitals", frame("p.bmp", ""), frame("P.bmp", ""), false},
        {"placed otherwise", frame("p", "", 1), frame("p", "", 2), false},
        {"other effects do not count", frame("p", "", 1, 5000), frame("p", "", 1, 7), true},
        {"only the later one photorealistic", frame("p", ""), frame("p", "", 0, 9999), true},
        {"only the earlier one photorealistic", frame("p", "", 0, 9999), frame("p", ""), false},
        {"the same command file", frame("p", "c", 1, 9999), frame("q", "c", 2), true},
        {"a picture named like a command file", frame("x", ""), frame("", "x"), false},
    };
    for (const auto& row : cases) {
        const Playfile playfile = playfileOf({{}, row.earlier, {}, row.later});
        EXPECT_EQ(HasPreviousClone(playfile, 4), row.isClone) << row.why;
        for (const std::int32_t number : {-1, 0, 1, 2, 5})
            EXPECT_FALSE(HasPreviousClone(playfile, number)) << number;
    }
}

// The limits of editing. fuzz/FrameEditing holds the rest against a list.

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
