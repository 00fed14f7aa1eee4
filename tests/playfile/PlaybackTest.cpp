#include <qrtVistrelClasses4/Playback.h>

#include "playfile/Effects.h"

#include <gmock/gmock.h>

#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

using testing::ElementsAre;

/// A playfile in short: "F" is a frame and "B" a blank one, "2(" before a frame starts a loop, and ")" after
/// it ends one.
Playfile playfileOf(const std::string& text) {
    Playfile playfile;
    std::int16_t rounds = 0;
    for (const char part : text) {
        std::int32_t number = playfile.frames.upperBound();
        if (part >= '1' && part <= '9') {
            rounds = static_cast<std::int16_t>(part - '0');
        } else if (part == ')') {
            playfile.frames.at(number).SuffixCode = kEndLoop;
        } else if (part != '(') {
            playfile.frames.resize(++number);
            playfile.frames.at(number).FrameType = part == 'F' ? 2 : 0;
            playfile.frames.at(number).PrefixCode =
                static_cast<std::int16_t>(rounds == 0 ? 0 : kLoopBase + rounds);
            rounds = 0;
        }
    }
    return playfile;
}

/// The numbers of frames as letters, each with its round.
std::string playbackOf(const std::string& text) {
    std::string steps;
    for (const PlaybackStep step : PlaybackOf(playfileOf(text)).steps)
        steps += static_cast<char>('a' + step.frame - 1) + std::to_string(step.round);
    return steps;
}

TEST(Playback, RunsThroughLoops) {
    struct Case {
        const char *why, *playfile, *steps;
    };
    const Case cases[] = {
        {"no frame", "BB", ""},
        {"frames in order", "FBF", "a1c1"},
        {"a loop", "F3(FF)F", "a1b1c1b2c2b3c3d1"},
        {"a loop of one frame", "2(F)F", "a1a2b1"},
        {"loops in each other", "2(F2(F)F)", "a1b1b2c1a2b1b2c2"},
        {"an end without a start", "F)2(F)", "a1b1b2"},
        {"a start without an end, which goes to the inner loop", "3(F2(F)F", "a1b1b2c1"},
        {"loops started by and ended in blank frames", "2(BFB)2(FB)", "b1d1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(playbackOf(c.playfile), c.steps);
    }
}

TEST(Playback, KnowsTheLoops) {
    const LoopsOfPlayfile found = LoopsOf(playfileOf("F)4(F3(F2(F)F)"));
    EXPECT_THAT(found.endsWithoutStart, ElementsAre(1));
    EXPECT_THAT(found.loops, ElementsAre(Loop{2, 0, 4, {}, 1}, Loop{3, 5, 3, {}, 1}, Loop{4, 4, 2, 1, 2}));
}

TEST(Playback, IsCutIfLoopsMakeMoreStepsThanMemoryHolds) {
    Playfile playfile;
    playfile.frames.resize(32767);
    for (FrameRecord& frame : playfile.frames) {
        frame.FrameType = 2;
        frame.PrefixCode = kLoopLimit - 1;
    }
    EXPECT_FALSE(PlaybackOf(playfile).isCut); // no loop has an end
    for (std::int32_t number = 16384; number <= 32767; ++number)
        std::tie(playfile.frames.at(number).PrefixCode, playfile.frames.at(number).SuffixCode) =
            std::tuple(0, kEndLoop);
    const Playback playback = PlaybackOf(playfile);
    EXPECT_TRUE(playback.isCut);
    EXPECT_EQ(playback.steps.size(), kMostPlaybackSteps);
}

} // namespace
} // namespace qrtVistrelClasses4
