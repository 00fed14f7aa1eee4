#include "PlayfileRecords.h"
#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class FrameEditing : public testing::Test {
protected:
    void start(const std::string& names, std::int16_t cursor) {
        putRecords(playfile_, filledFrames(names));
        playfile_.CurrentFrame(cursor);
    }
    /// Expects the frames of these names, each with all that it held, and the cursor.
    void expectState(const std::string& order, std::int16_t cursor, const Numbers& errors) {
        const Records frames = recordsOf(playfile_);
        ASSERT_EQ(orderOf(frames), order);
        for (const FrameRecord& frame : frames) {
            if (frame.FrameName.empty())
                EXPECT_EQ(frame.lines, emptyFrame().lines);
            else
                EXPECT_EQ(frame, filledFrame(frame.FrameName.front()));
        }
        EXPECT_EQ(playfile_.CurrentFrame(), cursor);
        EXPECT_EQ(host_.reports.takeNumbers(), errors);
    }

    TestHost host_;
    FrameInfoClass playfile_;
};

TEST_F(FrameEditing, InsertsAtTheCursor) {
    struct Case {
        const char* why;
        std::int16_t cursor;
        bool bLast;
        std::string order;
        std::int16_t cursorAfter;
        bool bLastAfter;
        Numbers errors;
    };
    const Case cases[] = {
        {"at the first frame", 1, false, "_ABCDE", 1, false, {}},
        {"in the middle", 3, false, "AB_CDE", 3, false, {}},
        {"at the last frame, which is told", 5, false, "ABCD_E", 5, true, {}},
        {"where the new frame comes to be", 6, false, "ABCDE_", 6, false, {}},
        {"behind the new frame", 7, false, "ABCDE_", 7, false, {9}},
        {"far behind", kLargest, false, "ABCDE_", kLargest, false, {9}},
        {"before the first frame", 0, false, "AABCDE", 0, false, {9}},
        {"below", -1, false, "AABCDE", -1, false, {9}},
        {"far below", kSmallest, false, "AABCDE", kSmallest, false, {9}},
        {"behind the last frame", 5, true, "ABCDE_", 6, true, {}},
        {"last but one: the last frame is emptied", 4, true, "ABCD__", 5, true, {}},
        {"in the middle: the next frame is emptied", 2, true, "AB_DE_", 3, true, {}},
        {"before the first frame, which is emptied", 0, true, "_BCDE_", 1, true, {}},
        {"below, as last", -1, true, "ABCDE_", 0, true, {9}},
        {"far below, as last", kSmallest, true, "ABCDE_", kSmallest + 1, true, {9}},
        {"behind the new frame, as last", 6, true, "ABCDE_", 7, true, {9}},
        {"no number follows", kLargest, true, "ABCDE_", kLargest, true, {6}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        start("ABCDE", row.cursor);
        bool bLast = row.bLast;
        playfile_.InsertFrame(bLast);
        EXPECT_EQ(bLast, row.bLastAfter);
        if (row.errors == Numbers{6})
            playfile_.MakeLineVarsValid(); // not reached by then
        expectState(row.order, row.cursorAfter, row.errors);
    }
    start("", 1);
    playfile_.InsertFrame();
    expectState("_", 1, {});
    start("", 0);
    playfile_.InsertFrame();
    EXPECT_EQ(recordsOf(playfile_), Records(1)) << "a frame that got no lines, since no frame moved";
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9});
}

TEST_F(FrameEditing, GivesANewFrameTheLookOfTheOneInItsPlace) {
    start("ABC", 2);
    playfile_.InsertFrame();
    EXPECT_EQ(recordsOf(playfile_)[1], emptied(filledFrame('B')));
    playfile_.CurrentFrame(5);
    playfile_.InsertFrame();
    EXPECT_EQ(recordsOf(playfile_)[4], emptyFrame()) << "in nobody's place";
}

TEST_F(FrameEditing, DeletesAtTheCursor) {
    struct Case {
        const char* why;
        std::string names;
        std::int16_t cursor;
        std::string order;
        std::int16_t cursorAfter;
        Numbers errors;
    };
    const Case cases[] = {
        {"in the middle", "ABCDEFGHIJ", 4, "ABCEFGHIJ", 3, {}},
        {"the first frame", "ABC", 1, "BC", 1, {}},
        {"the last frame", "ABC", 3, "AB", 2, {}},
        {"the only frame", "A", 1, "_", 1, {}},
        {"before the first frame", "ABC", 0, "ABC", 0, {9}},
        {"below", "ABC", -1, "ABC", -1, {9}},
        {"far below", "ABC", kSmallest, "ABC", kSmallest, {9}},
        {"behind the last frame", "ABC", 4, "ABC", 4, {9}},
        {"further behind", "ABC", 5, "ABC", 5, {9}},
        {"far behind", "ABC", kLargest, "ABC", kLargest, {9}},
        {"behind the only frame", "A", 2, "A", 2, {9}},
        {"no frames", "", 1, "", 1, {9}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        start(row.names, row.cursor);
        playfile_.DeleteCurrentFrame();
        expectState(row.order, row.cursorAfter, row.errors);
    }
    start("A", 1);
    playfile_.DeleteCurrentFrame();
    EXPECT_EQ(recordsOf(playfile_), Records{emptyFrame()}) << "nothing is left of its look";
}

TEST_F(FrameEditing, MovesAFrameBehindLaterAndBeforeEarlierOnes) {
    struct Case {
        const char* why;
        std::int16_t from, whereTo;
        std::string order;
    };
    const Case cases[] = {
        {"down", 2, 5, "ACDEBF"},          {"up", 5, 2, "AEBCDF"},
        {"to the next", 1, 2, "BACDEF"},   {"to the one before", 2, 1, "BACDEF"},
        {"first to last", 1, 6, "BCDEFA"}, {"last to first", 6, 1, "FABCDE"},
        {"last two", 5, 6, "ABCDFE"},      {"onto itself", 3, 3, "ABCDEF"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        start("ABCDEF", 3);
        playfile_.MoveFrame(row.from, row.whereTo);
        expectState(row.order, 3, {});
    }
    start("ABCDEF", 3);
    for (const std::int16_t outside : Shorts{kSmallest, -1, 0, 7, 8, kLargest}) {
        SCOPED_TRACE(outside);
        for (const std::int16_t inside : Shorts{1, 3, 6}) {
            playfile_.MoveFrame(outside, inside);
            playfile_.MoveFrame(inside, outside);
        }
        playfile_.MoveFrame(outside, outside); // equal numbers are no error
        expectState("ABCDEF", 3, {9, 9, 9, 9, 9, 9});
    }
}

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
}

TEST_F(FrameEditing, TellsWhetherAnEarlierFrameNeedsTheSameFile) {
    struct Look {
        std::string picture, command;
        std::int16_t display = 0, prefix = 0;
    };
    struct Case {
        const char* why;
        Look earlier, frame;
        bool isClone;
    };
    const Case cases[] = {
        {"the same picture", {"p", ""}, {"p", ""}, true},
        {"no files at all", {"", ""}, {"", ""}, false},
        {"another picture", {"p", ""}, {"q", ""}, false},
        {"other capitals", {"p.bmp", ""}, {"P.bmp", ""}, false},
        {"placed otherwise", {"p", "", 1}, {"p", "", 2}, false},
        {"other effects do not count", {"p", "", 1, 5000}, {"p", "", 1, 7}, true},
        {"both photorealistic", {"p", "", 0, 9999}, {"p", "", 0, 9999}, true},
        {"only the later one photorealistic", {"p", ""}, {"p", "", 0, 9999}, true},
        {"only the earlier one photorealistic", {"p", "", 0, 9999}, {"p", ""}, false},
        {"the same command file", {"", "c"}, {"", "c"}, true},
        {"whatever the picture", {"p", "c", 1, 9999}, {"q", "c", 2}, true},
        {"a command file in other capitals", {"", "c"}, {"", "C"}, false},
        {"a picture named like a command file", {"x", ""}, {"", "x"}, false},
    };
    playfile_.TotalFrames(4);
    for (const Case& row : cases) {
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
