#include <qrtVistrelClasses4/PlayfileHistory.h>

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

using testing::AllOf;
using testing::Ge;
using testing::Le;

constexpr std::size_t kLongText = 1'000'000;
constexpr std::size_t kSmallStep = 500; ///< Without frames.

Playfile longestPlayfile() {
    Playfile playfile;
    playfile.frames.resize(32767);
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number)
        playfile.frames.at(number).FrameName = std::to_string(number);
    return playfile;
}

TEST(PlayfileHistory, TakesMemoryForWhatHasChanged) {
    Playfile playfile = longestPlayfile();
    PlayfileHistory history(playfile);
    playfile.frames.move(1, 32767);
    playfile.frames.move(4000, 30);
    history.record(playfile, "Move");
    EXPECT_THAT(history.bytes(), Le(kSmallStep)) << "frames that moved are not kept";

    FrameRecord& frame = playfile.frames.at(77);
    frame.lines.resize(1000);
    frame.lines.at(1).spareTexts[2].assign(kLongText, 'x');
    frame.spareTexts[3] = frame.lines.at(1).spareTexts[2];
    history.record(playfile, "Change");
    const std::size_t expected = 2 * kLongText + 1000 * sizeof(LineRecord);
    EXPECT_THAT(history.bytes(), AllOf(Ge(expected), Le(expected + 2 * kSmallStep + sizeof(FrameRecord))));
}

TEST(PlayfileHistory, CannotTakeBackAStepThatIsLargerThanItsBound) {
    PlayfileHistory history({}, kLongText);
    Playfile playfile;
    playfile.frames.resize(1);
    EXPECT_TRUE(history.record(playfile, "Insert"));
    playfile.frames.at(1).FrameName.assign(kLongText, 'x');
    EXPECT_TRUE(history.record(playfile, "Type"));
    EXPECT_EQ(history.present(), playfile);
    EXPECT_FALSE(history.undo());
    EXPECT_EQ(history.bytes(), 0U);
}

} // namespace
} // namespace qrtVistrelClasses4
