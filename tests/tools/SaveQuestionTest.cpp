// The one question that saving asks, on a machine whose drives can be chosen.
#include "TestHost.h"

#include "playfile/FrameInfoClass.h"
#include "tools/Commands.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

struct SaveQuestion : testing::Test {
    TestHost host;
    const std::string stick = host.inLibrary("stick");
    const std::string picture = JoinPath(stick, "anchor.bmp");
    const std::string copiedPicture = JoinPath(host.inLibrary("Data"), "anchor.bmp");
    const std::string playfile = host.inLibrary("harbour.playfile");
    const std::string target = host.inLibrary("pier.playfile");

    SaveQuestion() {
        host.machine.files().put(picture, "picture");
        host.machine.files().addLooseDrive(stick);
        FrameInfoClass frames;
        frames.TotalFrames(1);
        frames.CurrentFrame(1);
        frames.PicturefileName(picture);
        frames.SetSuppressMessages(true);
        frames.WritePlayfileToDisk(playfile);
    }

    ExitCode save(std::vector<std::string> options) {
        Session session;
        CLI::App program;
        AddSaveCommand(program, session);
        options.insert(options.end(), {target, playfile, "save"}); // parsed from the back
        program.parse(options);
        return session.command();
    }

    std::string savedPicture() {
        FrameInfoClass frames;
        frames.GetPlayfileFromDisk(target);
        frames.CurrentFrame(1);
        return frames.PicturefileName();
    }
};

TEST_F(SaveQuestion, IsAskedAndTheAnswerHolds) {
    host.machine.messageBoxes().answers = {MessageAnswer::yes};
    EXPECT_EQ(save({}), ExitCode::done);
    EXPECT_EQ(host.machine.messageBoxes().shown.size(), 1U);
    EXPECT_EQ(savedPicture(), copiedPicture);
}

TEST_F(SaveQuestion, IsAnsweredYesByItsOption) {
    EXPECT_EQ(save({"--yes"}), ExitCode::done);
    EXPECT_TRUE(host.machine.messageBoxes().shown.empty());
    EXPECT_EQ(savedPicture(), copiedPicture);
}

TEST_F(SaveQuestion, IsAnsweredNoByItsOption) {
    host.machine.messageBoxes().answers = {MessageAnswer::yes};
    EXPECT_EQ(save({"--no"}), ExitCode::done);
    EXPECT_TRUE(host.machine.messageBoxes().shown.empty());
    EXPECT_EQ(savedPicture(), picture);
}

TEST_F(SaveQuestion, AnsweringItBeforehandHidesNoFailure) {
    host.machine.files().setReadOnly(host.machine.library);
    EXPECT_EQ(save({"--yes"}), ExitCode::failed);
    ASSERT_EQ(host.machine.messageBoxes().shown.size(), 1U);
    EXPECT_EQ(host.machine.messageBoxes().shown[0].title, "Unable to save playfile");
}

} // namespace
} // namespace qrtVistrelClasses4
