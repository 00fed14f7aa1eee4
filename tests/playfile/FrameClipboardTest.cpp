#include "PlayfileRecords.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <functional>

namespace qrtVistrelClasses4 {
namespace {

/// Acts whenever a procedure is entered.
class AtEntry final : public TraceRecorder {
public:
    AtEntry(std::string procedure, std::function<void()> act)
        : procedure_(std::move(procedure)), act_(std::move(act)) {}
    void entered(const TraceLine& line) override {
        if (line.procedure == procedure_)
            act_();
    }
    void left(const TraceLine&) override {}

private:
    std::string procedure_;
    std::function<void()> act_;
};

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

class FrameClipboard : public testing::Test {
protected:
    FrameClipboard() { putRecords(playfile_, filledFrames("ABCDEF")); }
    /// Copies or cuts; the numbers are then in `first_` and `last_`.
    void take(std::int16_t first, std::int16_t last, bool cut = false) {
        first_ = first;
        last_ = last;
        cut ? playfile_.CutInfo(first_, last_, clipboard_) : playfile_.CopyInfo(first_, last_, clipboard_);
    }
    std::string order() { return orderOf(recordsOf(playfile_)); }
    std::string clipboardOrder() { return orderOf(recordsOf(*clipboard_)); }

    TestHost host_;
    FrameInfoClass playfile_;
    std::shared_ptr<FrameInfoClass> clipboard_;
    std::int16_t first_ = 0, last_ = 0;
};

TEST_F(FrameClipboard, CopiesAndCutsARunOfFramesWhicheverEndIsGivenFirst) {
    struct Case {
        const char* why;
        std::int16_t from, to;
        std::string copied, left;
        std::int16_t cursorAfterCut;
    };
    const Case cases[] = {
        {"rising", 3, 5, "CDE", "ABF", 2},
        {"falling: the numbers are swapped", 5, 3, "CDE", "ABF", 2},
        {"one frame", 4, 4, "D", "ABCEF", 3},
        {"from the first", 1, 2, "AB", "CDEF", 1},
        {"to the last", 5, 6, "EF", "ABCD", 4},
        {"the only frame left is an empty one", 1, 6, "ABCDEF", "_", 1},
        {"all, falling", 6, 1, "ABCDEF", "_", 1},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        for (const bool cut : {false, true}) {
            putRecords(playfile_, filledFrames("ABCDEF"));
            playfile_.CurrentFrame(6);
            playfile_.CurrentLineNumber(2);
            take(row.from, row.to, cut);
            EXPECT_EQ(std::pair(first_, last_), std::minmax({row.from, row.to}));
            EXPECT_EQ(clipboardOrder(), row.copied);
            EXPECT_EQ(order(), cut ? row.left : "ABCDEF");
            EXPECT_EQ(playfile_.CurrentFrame(), cut ? row.cursorAfterCut : 6);
            EXPECT_EQ(playfile_.CurrentLineNumber(), 2);
        }
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameClipboard, IsANewPlayfileWhenTheRangeLeavesTheFrames) {
    const Records before = recordsOf(playfile_);
    for (const std::int16_t outside : Shorts{kSmallest, -1, 0, 7, 8, kLargest}) {
        for (const std::int16_t other : Shorts{1, 6, outside}) {
            for (const bool cut : {false, true}) {
                SCOPED_TRACE(std::to_string(outside) + " and " + std::to_string(other));
                take(1, 3);
                const std::weak_ptr<FrameInfoClass> old = clipboard_;
                take(other, outside, cut);
                EXPECT_EQ(std::pair(first_, last_), std::minmax({other, outside}));
                EXPECT_TRUE(old.expired());
                EXPECT_EQ(recordsOf(*clipboard_), Records(20, emptyFrame()));
                EXPECT_EQ(recordsOf(playfile_), before);
            }
        }
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameClipboard, CarriesWhatPropertiesCarry) {
    Records source = filledFrames("AB");
    source[0].lines.at(1).Merge = source[1].lines.at(2).Merge = true;
    putRecords(playfile_, source);
    take(1, 2);
    Records copies{copied(source[0]), copied(source[1])};
    EXPECT_EQ(recordsOf(*clipboard_), copies);
    EXPECT_EQ(copies[1].lines.at(2).CurrentLineText, source[1].lines.at(2).CurrentLineText);
    clipboard_->CurrentFrame(2);
    clipboard_->CurrentLineNumber(1);
    clipboard_->Merge(true);
    clipboard_->FixedNumberOfLines(4);
    copies[1].lines.at(1).Merge = true;
    const Records below{filledFrame('C', 0), filledFrame('D', 3)};
    putRecords(playfile_, below);
    playfile_.TotalFramesAllowed(2);
    playfile_.PasteInfo(1, clipboard_.get());
    EXPECT_EQ(recordsOf(playfile_),
              (Records{carriedOver(below[0], copies[0]), carriedOver(below[1], copies[1])}))
        << "merging gets out of a clipboard, but never in";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameClipboard, CarriesNumbersFromFilesByTheRulesOfTheirProperties) {
    struct Case {
        const char* why;
        FrameRecord stored, arriving;
    };
    const auto flags = [](std::int16_t asIs, std::int16_t overlay, std::int16_t fast) {
        FrameRecord frame = emptyFrame();
        frame.SendCommandFileAsIs = asIs;
        frame.OverlayFrame = overlay;
        frame.FastScroll = fast;
        return frame;
    };
    const auto codes = [](std::int16_t prefix, std::int16_t suffix) {
        FrameRecord frame = emptyFrame();
        frame.PrefixCode = prefix;
        frame.SuffixCode = suffix;
        return frame;
    };
    const Case cases[] = {
        {"flags that are set", flags(1, 1, 1), flags(1, 1, 1)},
        {"flags stored as -1: fast scrolling reads as off", flags(-1, -1, -1), flags(1, 1, 0)},
        {"flags stored as another number", flags(7, 7, 7), flags(1, 1, 0)},
        {"photorealistic on both sides", codes(9999, 9999), codes(9999, 9999)},
        {"on the disappear side alone", codes(7, 9999), codes(9999, 9999)},
        {"on the appear side alone, which is set first", codes(9999, 7), codes(0, 7)},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        putRecords(playfile_, {row.stored});
        take(1, 1);
        EXPECT_EQ(recordsOf(*clipboard_), Records{row.arriving});
        putRecords(*clipboard_, {row.stored});
        playfile_.PasteInfo(2, clipboard_.get());
        EXPECT_EQ(recordsOf(playfile_)[1], row.arriving);
    }
}

TEST_F(FrameClipboard, PastesUpToTheFramesAllowed) {
    struct Case {
        const char* why;
        std::int16_t allowed, pasteTo;
        std::string order;
        Numbers errors;
    };
    const Case cases[] = {
        {"at the first frame", 1048, 1, "CDEFABCDEF", {}},
        {"in the middle", 1048, 4, "ABCCDEFDEF", {}},
        {"at the last frame", 1048, 6, "ABCDECDEFF", {}},
        {"behind the last frame", 1048, 7, "ABCDEFCDEF", {}},
        {"with a gap before it: frames made below stay as they are", 1048, 9, "ABCDEF__CD", {9, 9, 9, 9}},
        {"room for two", 8, 7, "ABCDEFCD", {}},
        {"room for two in the middle: the others replace frames", 8, 2, "ACDEFDEF", {}},
        {"no room: frames are replaced", 6, 2, "ACDEFF", {}},
        {"no room: only up to the limit", 6, 5, "ABCDCD", {}},
        {"more frames than allowed", 5, 5, "ABCDCF", {}},
        {"behind the limit", 6, 7, "ABCDEF", {}},
        {"far behind", 6, kLargest, "ABCDEF", {}},
        {"none allowed", -1, 1, "ABCDEF", {}},
        {"before the first frame, without room", 6, 0, "DEFDEF", {9}},
        {"before the first frame", 7, -1, "EFBCDEF", {9, 9, 9}},
        {"far below", 6, kSmallest, "ABCDEF", {9, 9, 9, 9}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        putRecords(playfile_, filledFrames("ABCDEF"));
        playfile_.TotalFramesAllowed(row.allowed);
        take(3, 6);
        playfile_.PasteInfo(row.pasteTo, clipboard_.get());
        EXPECT_EQ(order(), row.order);
        EXPECT_EQ(playfile_.CurrentFrame(), row.pasteTo);
        EXPECT_EQ(clipboardOrder(), "CDEF");
        EXPECT_EQ(host_.reports.takeNumbers(), row.errors);
    }
}

TEST_F(FrameClipboard, LeavesOutWhatWouldPassTheLimitOf1048Frames) {
    take(1, 4);
    for (const std::int16_t total : Shorts{1046, 1048}) {
        putRecords(playfile_, filledFrames("ABCDEF"));
        playfile_.TotalFrames(total);
        playfile_.PasteInfo(1047, clipboard_.get());
        EXPECT_EQ(order().substr(1045), "_AB") << total;
    }
    playfile_.TotalFrames(kLargest);
    playfile_.TotalFramesAllowed(kLargest);
    playfile_.PasteInfo(kLargest, clipboard_.get());
    EXPECT_EQ(playfile_.TotalFrames(), kLargest);
    EXPECT_EQ(playfile_.FrameName(), "A") << "at the last number that there is";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameClipboard, PastesNothingWithoutAClipboardOrFromAnEmptyOne) {
    playfile_.CurrentFrame(3);
    playfile_.PasteInfo(1, nullptr);
    EXPECT_EQ(playfile_.CurrentFrame(), 3) << "not even the cursor moves";
    FrameInfoClass empty;
    empty.TotalFrames(0);
    playfile_.PasteInfo(1, &empty);
    EXPECT_EQ(playfile_.CurrentFrame(), 1);
    EXPECT_EQ(order(), "ABCDEF");
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameClipboard, MayBeThePlayfileItself) {
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

TEST_F(FrameClipboard, KeepsFramesThatCouldNotBeCopied) {
    AtEntry shrinking("Sub PutInfoFromFrameIntoVariable", [&] { clipboard_->TotalFrames(1); });
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

TEST_F(FrameClipboard, AppearsOnTheTraceCallByCall) {
    const auto traceOf = [&](const std::function<void()>& act) {
        KeptTrace trace;
        const ScopedTraceRecorder scope(trace);
        act();
        return compact(trace.lines);
    };
    putRecords(playfile_, {filledFrame('A'), filledFrame('B', 1)});
    EXPECT_EQ(
        traceOf([&] { take(2, 2, true); }),
        (Texts{
            "> Sub CutInfo (CutFromY=2, CutToY=2, MyClipboard=<Nothing>)",
            "> Sub CopyInfo (CopyFromY=2, CopyToY=2, MyClipboard=<Nothing>)", "> Sub Class_Initialize ()",
            "> Sub MakeLineVarsValid ()", "< Sub MakeLineVarsValid ()",
            "< Sub Class_Initialize () TotalFrames (vData=1)", "> Sub MakeLineVarsValid ()",
            "< Sub MakeLineVarsValid ()",
            "> Sub PutInfoFromFrameIntoVariable (FrameNum=2, VarFrameNum=1, VarToPlaceIn=<FrameInfoClass>)"
            " CurrentFrame (vData=1) commandfile (vData=text 400) TotalDisplayFramesUsedForThisFrame "
            "(vData=410)"
            " DelayTime (vData=26280437.25) FontHeight (vData=402) FontWidth (vData=426) FrameName (vData=B)"
            " FrameType (vData=404) PicturefileName (vData=text 405) PictureFileDisplay (vData=408)"
            " PictureFileType (vData=409) PrefixCode (vData=406) SuffixCode (vData=407)"
            " TotalLinesAllowed (vData=1) CurrentLineNumber (vData=1) CurrentLineText (vData=text 427)"
            " Scrolling (vData=False) LineFontSize (vData=428)",
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
            " CurrentFrame (vData=1) commandfile () TotalDisplayFramesUsedForThisFrame () DelayTime () "
            "FontHeight ()"
            " FontWidth () FrameName () FrameType () PicturefileName () PictureFileDisplay () "
            "PictureFileType ()"
            " PrefixCode () SuffixCode () TotalLinesAllowed () CurrentLineNumber (vData=1) CurrentLineText ()"
            " Scrolling () LineFontSize ()",
            "< Sub PutInfoFromVariableIntoFrame (FrameNum=1, VarFrameNum=1, VarToPlaceIn=<FrameInfoClass>)",
            "< Sub PasteInfo (PasteTo=1, MyClipboardInfo=<FrameInfoClass>)"}));
    EXPECT_EQ(traceOf([&] { take(1, 0); }),
              (Texts{"> Sub CopyInfo (CopyFromY=1, CopyToY=0, MyClipboard=<FrameInfoClass>)",
                     "> Sub Class_Terminate ()", "< Sub Class_Terminate ()", "> Sub Class_Initialize ()",
                     "> Sub MakeLineVarsValid ()", "< Sub MakeLineVarsValid ()", "< Sub Class_Initialize ()",
                     "< Sub CopyInfo (CopyFromY=0, CopyToY=1, MyClipboard=<FrameInfoClass>)"}))
        << "the old clipboard goes first";
}

} // namespace
} // namespace qrtVistrelClasses4
