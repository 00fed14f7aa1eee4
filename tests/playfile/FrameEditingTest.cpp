// What stands at the limits of editing, and its trace; the rest is held against a list in
// FrameEditingModelTest.
#include "PlayfileRecords.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <regex>

namespace qrtVistrelClasses4 {
namespace {

/// The trace without the exits of properties, whose entries stand behind what called them.
Texts compact(const Texts& trace) {
    Texts lines;
    for (const std::string& line : trace)
        if (line.starts_with("> Property"))
            lines.back() += " " + line.substr(line.find(") ") + 2);
        else if (!line.starts_with("< Property"))
            lines.push_back(line);
    return lines;
}

class FrameEditing : public testing::Test {
protected:
    void take(std::int16_t first, std::int16_t last, bool cut = false) {
        cut ? playfile_.CutInfo(first, last, clipboard_) : playfile_.CopyInfo(first, last, clipboard_);
    }
    std::string order() { return orderOf(recordsOf(playfile_)); }
    std::string clipboardOrder() { return orderOf(recordsOf(*clipboard_)); }

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
        EXPECT_EQ(bLast, given);
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
        EXPECT_EQ(playfile_.TotalFrames(), kLargest);
        EXPECT_EQ(playfile_.CurrentFrame(), 1);
        EXPECT_EQ(playfile_.FrameName(), "first");
    }
    playfile_.DeleteCurrentFrame();
    playfile_.InsertFrame();
    EXPECT_EQ(playfile_.TotalFrames(), kLargest);
    EXPECT_TRUE(host_.reports.all.empty());

    putRecords(playfile_, filledFrames("AB"));
    playfile_.CurrentFrame(kLargest);
    bool bLast = true;
    playfile_.InsertFrame(bLast);
    EXPECT_EQ(order(), "AB_");
    EXPECT_EQ(playfile_.CurrentFrame(), kLargest) << "no number follows";
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

TEST_F(FrameEditing, PastesNothingBeyondTheLimitOf1048FramesNorFromAnEmptyClipboard) {
    putRecords(playfile_, filledFrames("ABCDEF"));
    take(1, 4);
    for (const std::int16_t total : Shorts{1046, 1048}) {
        putRecords(playfile_, filledFrames("ABCDEF"));
        playfile_.TotalFrames(total);
        playfile_.PasteInfo(1047, clipboard_.get());
        EXPECT_EQ(order().substr(1045), "_AB") << total;
    }
    clipboard_->TotalFrames(0);
    playfile_.PasteInfo(1, clipboard_.get());
    EXPECT_EQ(playfile_.CurrentFrame(), 1);
    EXPECT_EQ(playfile_.TotalFrames(), 1048);
    take(1, 4);
    playfile_.TotalFrames(kLargest);
    playfile_.TotalFramesAllowed(kLargest);
    playfile_.PasteInfo(kLargest, clipboard_.get());
    EXPECT_EQ(playfile_.TotalFrames(), kLargest);
    EXPECT_EQ(playfile_.FrameName(), "A") << "at the last number that there is";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameEditing, MayTakeThePlayfileItselfForTheClipboard) {
    putRecords(playfile_, filledFrames("ABC"));
    playfile_.PasteInfo(2, &playfile_);
    EXPECT_EQ(order(), "AAAABC") << "each frame is read after the one before it was put";
    for (const bool cut : {false, true}) {
        SCOPED_TRACE(cut);
        clipboard_ = std::make_shared<FrameInfoClass>();
        putRecords(*clipboard_, filledFrames("ABC"));
        std::int16_t first = 3;
        std::int16_t last = 2;
        cut ? clipboard_->CutInfo(first, last, clipboard_) : clipboard_->CopyInfo(first, last, clipboard_);
        EXPECT_EQ(clipboardOrder(), "BC") << "released by its last owner, it lives until the call is over";
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameEditing, KeepsFramesThatCouldNotBeCopied) {
    /// The host meddles with the clipboard while it is filled.
    struct Shrinking final : TraceRecorder {
        explicit Shrinking(std::shared_ptr<FrameInfoClass>& given) : clipboard(given) {}
        void entered(const TraceLine& line) override {
            if (line.procedure == "Sub PutInfoFromFrameIntoVariable")
                clipboard->TotalFrames(1);
        }
        void left(const TraceLine&) override {}
        std::shared_ptr<FrameInfoClass>& clipboard;
    } shrinking(clipboard_);
    putRecords(playfile_, filledFrames("ABCDEF"));
    {
        const ScopedTraceRecorder scope(shrinking);
        take(2, 3, true);
    }
    EXPECT_EQ(clipboardOrder(), "B");
    EXPECT_EQ(order(), "ABCDEF");
    EXPECT_FALSE(host_.reports.all.empty());
    take(2, 3, true);
    EXPECT_EQ(order(), "ADEF") << "older errors do not count";
}

TEST_F(FrameEditing, AppearsOnTheTraceCallByCall) {
    const auto traceOf = [&](const std::function<void()>& act) {
        KeptTrace trace;
        const ScopedTraceRecorder scope(trace);
        act();
        return compact(trace.lines);
    };
    putRecords(playfile_, {filledFrame('A'), filledFrame('B', 1)});
    const std::string putFrame =
        " commandfile (vData=text 400) TotalDisplayFramesUsedForThisFrame (vData=410)"
        " DelayTime (vData=26280437.25) FontHeight (vData=402) FontWidth (vData=426) FrameName (vData=B)"
        " FrameType (vData=404) PicturefileName (vData=text 405) PictureFileDisplay (vData=408)"
        " PictureFileType (vData=409) PrefixCode (vData=406) SuffixCode (vData=407) TotalLinesAllowed "
        "(vData=1)";
    const std::string putLine =
        " CurrentLineText (vData=text 427) Scrolling (vData=False) LineFontSize (vData=428)";
    const auto got = [](const std::string& put) {
        return std::regex_replace(put, std::regex("vData=[^)]*"), "");
    };
    EXPECT_EQ(
        traceOf([&] { take(2, 2, true); }),
        (Texts{
            "> Sub CutInfo (CutFromY=2, CutToY=2, MyClipboard=<Nothing>)",
            "> Sub CopyInfo (CopyFromY=2, CopyToY=2, MyClipboard=<Nothing>)", "> Sub Class_Initialize ()",
            "> Sub MakeLineVarsValid ()", "< Sub MakeLineVarsValid ()",
            "< Sub Class_Initialize () TotalFrames (vData=1)", "> Sub MakeLineVarsValid ()",
            "< Sub MakeLineVarsValid ()",
            "> Sub PutInfoFromFrameIntoVariable (FrameNum=2, VarFrameNum=1, VarToPlaceIn=<FrameInfoClass>)"
            " CurrentFrame (vData=1)" +
                putFrame + " CurrentLineNumber (vData=1)" + putLine,
            "< Sub PutInfoFromFrameIntoVariable (FrameNum=2, VarFrameNum=1, VarToPlaceIn=<FrameInfoClass>)",
            "< Sub CopyInfo (CopyFromY=2, CopyToY=2, MyClipboard=<FrameInfoClass>) CurrentFrame (vData=2)",
            "> Sub DeleteCurrentFrame ()", "< Sub DeleteCurrentFrame ()",
            "< Sub CutInfo (CutFromY=2, CutToY=2, MyClipboard=<FrameInfoClass>)"}));
    EXPECT_EQ(
        traceOf([&] { playfile_.PasteInfo(1, clipboard_.get()); }),
        (Texts{
            "> Sub PasteInfo (PasteTo=1, MyClipboardInfo=<FrameInfoClass>) CurrentFrame (vData=1) "
            "TotalFrames ()",
            "> Sub InsertFrame (bLast=False)", "> Sub MakeLineVarsValid ()", "< Sub MakeLineVarsValid ()",
            "> Sub InitFrame (LineToInit=1)", "< Sub InitFrame (LineToInit=1)",
            "< Sub InsertFrame (bLast=True)",
            "> Sub PutInfoFromVariableIntoFrame (FrameNum=1, VarFrameNum=1, VarToPlaceIn=<FrameInfoClass>)"
            " CurrentFrame (vData=1)" +
                got(putFrame) + " CurrentLineNumber (vData=1)" + got(putLine),
            "< Sub PutInfoFromVariableIntoFrame (FrameNum=1, VarFrameNum=1, VarToPlaceIn=<FrameInfoClass>)",
            "< Sub PasteInfo (PasteTo=1, MyClipboardInfo=<FrameInfoClass>)"}));
    EXPECT_EQ(traceOf([&] { take(1, 0); }),
              (Texts{"> Sub CopyInfo (CopyFromY=1, CopyToY=0, MyClipboard=<FrameInfoClass>)",
                     "> Sub Class_Terminate ()", "< Sub Class_Terminate ()", "> Sub Class_Initialize ()",
                     "> Sub MakeLineVarsValid ()", "< Sub MakeLineVarsValid ()", "< Sub Class_Initialize ()",
                     "< Sub CopyInfo (CopyFromY=0, CopyToY=1, MyClipboard=<FrameInfoClass>)"}))
        << "the old clipboard goes first";
}

TEST_F(FrameEditing, TellsWhetherAnEarlierFrameNeedsTheSameFile) {
    struct Look {
        std::string picture, command;
        std::int16_t display = 0, prefix = 0;
    };
    const struct {
        const char* why;
        Look earlier, frame;
        bool isClone;
    } cases[] = {
        {"no files at all", {"", ""}, {"", ""}, false},
        {"another picture", {"p", ""}, {"q", ""}, false},
        {"other capitals", {"p.bmp", ""}, {"P.bmp", ""}, false},
        {"placed otherwise", {"p", "", 1}, {"p", "", 2}, false},
        {"other effects do not count", {"p", "", 1, 5000}, {"p", "", 1, 7}, true},
        {"both photorealistic", {"p", "", 0, 9999}, {"p", "", 0, 9999}, true},
        {"only the later one photorealistic", {"p", ""}, {"p", "", 0, 9999}, true},
        {"only the earlier one photorealistic", {"p", "", 0, 9999}, {"p", ""}, false},
        {"the same command file, whatever the picture", {"p", "c", 1, 9999}, {"q", "c", 2}, true},
        {"a command file in other capitals", {"", "c"}, {"", "C"}, false},
        {"a picture named like a command file", {"x", ""}, {"", "x"}, false},
    };
    playfile_.TotalFrames(4);
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        for (const std::int16_t number : Shorts{2, 4}) {
            const Look& look = number == 2 ? row.earlier : row.frame;
            playfile_.CurrentFrame(number);
            playfile_.PicturefileName(look.picture);
            playfile_.commandfile(look.command);
            playfile_.PictureFileDisplay(look.display);
            playfile_.PrefixCode(look.prefix);
        }
        EXPECT_EQ(playfile_.IsThereAPreviousClone(4), row.isClone);
        for (const std::int16_t number : Shorts{kSmallest, -1, 0, 1, 2, 5, 6, kLargest})
            EXPECT_FALSE(playfile_.IsThereAPreviousClone(number)) << number;
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
