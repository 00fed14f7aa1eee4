// Rules of frames and playfiles as values.
#include <qrtVistrelClasses4/Playfile.h>

#include "TestHost.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

Playfile playfileOf(const std::vector<FrameRecord>& frames) {
    Playfile playfile{OneBasedArray<FrameRecord>(static_cast<std::int32_t>(frames.size())), "", false};
    std::ranges::copy(frames, playfile.frames.begin());
    return playfile;
}

TEST(Playfile, HoldsThePhotoRealisticEffectOnBothSidesOrOnNone) {
    FrameRecord frame;
    constexpr auto prefix = PrefixCodeAccessor::set, suffix = SuffixCodeAccessor::set;
    for (const auto& [set, code, codes] : {std::tuple(prefix, 9999, std::pair(9999, 9999)),
                                           {prefix, 4, {4, 0}},
                                           {suffix, 9999, {9999, 9999}},
                                           {suffix, 10, {0, 10}},
                                           {prefix, 5, {5, 10}}}) {
        set(frame, static_cast<std::int16_t>(code));
        EXPECT_EQ((std::pair<int, int>(frame.PrefixCode, frame.SuffixCode)), codes);
    }
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

} // namespace
} // namespace qrtVistrelClasses4
