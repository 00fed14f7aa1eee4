#include "playfile/FrameInfoClass.h"

#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class FrameCounts : public testing::Test {
protected:
    /// Used, graphic, text, graphic with text, command file.
    Numbers counts() {
        return {playfile_.HowManyUsedFramesAreThere(), playfile_.HowManyGraphicsAreThere(),
                playfile_.HowManyTextFramesAreThere(), playfile_.HowManyGraphicTextFramesAreThere(),
                playfile_.HowManyCommandFileFramesAreThere()};
    }
    void addFrame(std::int32_t type, double delay) {
        playfile_.TotalFrames(static_cast<std::int16_t>(playfile_.TotalFrames() + 1));
        playfile_.CurrentFrame(playfile_.TotalFrames());
        playfile_.FrameType(FRAME_TYPES{type});
        playfile_.DelayTime(delay);
    }

    TestHost host_;
    FrameInfoClass playfile_;
};

TEST_F(FrameCounts, CountsTheKindsByTheirStoredNumbers) {
    EXPECT_EQ(counts(), (Numbers{0, 0, 0, 0, 0})) << "twenty blank frames";
    // Each kind another number of times; 5 and -1 are no kind, but not blank either.
    for (const int type : {0, 1, 2, 2, 3, 3, 3, 4, 4, 4, 4, 5, -1})
        addFrame(type, 0);
    EXPECT_EQ(counts(), (Numbers{12, 1, 2, 3, 4}));
    playfile_.TotalFrames(0);
    EXPECT_EQ(counts(), (Numbers{0, 0, 0, 0, 0}));
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(FrameCounts, RoundsTheDelayAfterEveryFrame) {
    const struct {
        const char* why;
        std::vector<double> delays;
        std::int32_t total;
        Numbers errors;
    } cases[] = {
        {"no frames", {}, 0, {}},
        {"halves go to the even number", {0.5, 0.5, 0.5}, 0, {}},
        {"up as well", {1.5, 1.5}, 4, {}},
        {"not once at the end", {2.5, 0.4}, 2, {}},
        {"below zero", {-0.5, -1.5, -2}, -4, {}},
        {"up to the largest number", {2147483646, 1.4}, 2147483647, {}},
        {"beyond it", {2147483647, 0.5}, 0, {6}},
        {"down to the smallest number", {-2147483648.0, -0.5}, -2147483647 - 1, {}},
        {"below it", {-2147483648.0, -0.6}, 0, {6}},
        {"back again is too late", {2147483647, 1, -1}, 0, {6}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        playfile_.TotalFrames(0);
        addFrame(0, 1000); // blank: never counted
        for (const double delay : row.delays)
            addFrame(2, delay);
        EXPECT_EQ(playfile_.WhatsTheTotalOfAllDelaysForThisFile(), row.total);
        EXPECT_EQ(host_.reports.takeNumbers(), row.errors);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
