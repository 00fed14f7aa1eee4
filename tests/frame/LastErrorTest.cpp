// What an object answers when it is asked for its last error.
#include "HostTest.h"
#include <qrtVistrelClasses4/CallTrace.h>
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <functional>
#include <memory>

namespace qrtVistrelClasses4 {
namespace {

class LastErrors : public HostTest, public testing::WithParamInterface<bool> {
protected:
    LastErrors() { SwitchTrace(GetParam()); }
    ~LastErrors() override {
        takeErrors();
        takeBoxes();
        SwitchTrace(true);
    }
};
INSTANTIATE_TEST_SUITE_P(WithAndWithoutTrace, LastErrors, testing::Bool());

template <class Object>
std::string last(const Object& object) {
    EXPECT_EQ(object.LastErrorNumber(), object.LastErrorNumber()) << "asking clears nothing";
    return std::to_string(object.LastErrorNumber()) + " " + object.LastErrorDescription();
}
constexpr const char* kNone = "0 ";
constexpr const char* kNoSuchNumber = "9 Subscript out of range";

class RunningReporter final : public ErrorReporter {
public:
    explicit RunningReporter(std::function<void()> run) : run_(std::move(run)) {}
    void report(const ErrorReport&) override { run_(); }

private:
    std::function<void()> run_;
};

TEST_P(LastErrors, AreThoseOfTheLastCallHoweverItFailed) {
    FrameInfoClass frames;
    EXPECT_EQ(last(frames), kNone);
    const std::function<void()> failures[] = {
        [&] { (void)frames.FrameName(); }, [&] { frames.FrameName("x"); },
        [&] { frames.MoveFrame(1, 99); },  [&] { frames.InitFrame(99); },
        [&] { frames.TotalFrames(-1); },   [&] { EXPECT_THROW(frames.Blinking(), RuntimeError); },
    };
    const std::function<void()> successes[] = {
        [&] { frames.CurrentFrame(0); },
        [&] { (void)frames.CurrentFrame(); },
        [&] { (void)frames.IsLegacy(); },
        [&] { frames.SetSuppressMessages(false); },
        [&] { frames.MoveFrame(1, 2); },
        [&] { (void)frames.HowManyUsedFramesAreThere(); },
        [&] { frames.Adopt(Playfile(frames.Value())); },
        [&] { frames.TakeOver(frames); },
    };
    for (const auto& fail : failures)
        for (const auto& succeed : successes) {
            fail();
            EXPECT_EQ(last(frames), kNoSuchNumber);
            succeed();
            EXPECT_EQ(last(frames), kNone);
        }
}

TEST_P(LastErrors, OfACallAreNotClearedByItsOwnStepsNorByTheHost) {
    FrameInfoClass frames;
    frames.TotalFramesAllowed(40);
    FrameInfoClass clipboard;
    frames.PasteInfo(30, &clipboard); // each insertion is an error
    EXPECT_EQ(last(frames), kNoSuchNumber);
    EXPECT_EQ(last(clipboard), kNone);
    clipboard.MoveFrame(1, 99);
    frames.CurrentFrame(-1);
    RunningReporter reporter([&] {
        EXPECT_EQ(last(frames), kNoSuchNumber);
        frames.CurrentFrame(0);
        clipboard.CurrentFrame(0);
        EXPECT_EQ(last(clipboard), kNone);
    });
    const ScopedErrorReporter scope(reporter);
    (void)frames.FrameName();
    EXPECT_EQ(last(frames), kNoSuchNumber);
}

TEST_P(LastErrors, OfFailuresInBoxesHaveTheirNumberAndText) {
    FrameInfoClass frames;
    EXPECT_FALSE(frames.WriteXMLToDisk(host_.inLibrary("none/a")));
    EXPECT_EQ(last(frames), "76 Error writing to file. Maybe read-only.");
    DisplayDatabaseClass signs;
    signs.WriteAllDisplaysToDisk();
    EXPECT_EQ(signs.LastErrorNumber(), 75) << signs.LastErrorDescription();
    EXPECT_EQ("! Error Occurred: " + signs.LastErrorDescription(), takeBoxes().back());
    signs.CurrentDisplayNumber(1);
    EXPECT_EQ(last(signs), kNone);
}

TEST_P(LastErrors, ThatAreOnlyLoggedCountIfTheCallFailed) {
    MostRecentlyUsed recent;
    EXPECT_EQ(takeErrors(), Numbers{53}) << "quiet, as there is no file yet";
    EXPECT_EQ(last(recent), kNone);
    (void)recent.GetFileName(-1);
    EXPECT_EQ(last(recent), kNoSuchNumber);
    clsCommandInterface commands;
    EXPECT_EQ(last(commands), kNone);
    EXPECT_THROW(commands.sCommandBytesByNum(20000), RuntimeError);
    EXPECT_EQ(last(commands), kNoSuchNumber);
    (void)commands.sCommandBytesByKey("x");
    EXPECT_EQ(last(commands), kNone);
    for (const char* file : {"db/VistrelLite.dat", "VistrelLite.MRU"})
        files().makeFolders(host_.inLibrary(file)); // which nobody can read
    EXPECT_EQ(clsCommandInterface().LastErrorNumber(), 75);
    EXPECT_EQ(MostRecentlyUsed().LastErrorNumber(), 75);
    SettingsInfoClass settings;
    files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\nWizardMode=maybe\r\n");
    settings.GetSettingsFromDisk();
    EXPECT_EQ(settings.LastErrorNumber(), 13) << settings.LastErrorDescription();
    settings.ScheduleNumber(5);
    EXPECT_EQ(last(settings), kNone);
    (void)settings.BrightnessScheduleStopTime();
    EXPECT_EQ(last(settings), kNoSuchNumber);
}

TEST_P(LastErrors, OfAnObjectThatAReportDestroysAreGone) {
    auto frames = std::make_unique<FrameInfoClass>();
    RunningReporter reporter([&] { frames.reset(); });
    const ScopedErrorReporter scope(reporter);
    FrameInfoClass& object = *frames;
    (void)object.FrameName();
    EXPECT_FALSE(frames);
}

} // namespace
} // namespace qrtVistrelClasses4
