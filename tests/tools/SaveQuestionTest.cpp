// The one question that saving asks, on a machine whose drives can be chosen.
#include "TestHost.h"

#include "playfile/FrameInfoClass.h"
#include "tools/Commands.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

struct SaveQuestion : testing::Test {
    TestHost host;
    const std::vector<Message>& shown = host.machine.messageBoxes().shown;
    const std::string stick = host.inLibrary("stick");
    const std::string picture = JoinPath(stick, "anchor.bmp");
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

    ExitCode run(const std::string& arguments) {
        Session session;
        CLI::App program;
        AddSaveCommand(program, session);
        AddFramesCommand(program, session);
        program.parse(arguments);
        return session.command();
    }
    ExitCode save(const std::string& option) { return run("save " + playfile + " " + target + " " + option); }
};

TEST_F(SaveQuestion, IsAskedOrAnsweredByAnOption) {
    const std::string copy = JoinPath(host.inLibrary("Data"), "anchor.bmp");
    struct Case {
        const char* option;
        MessageAnswer answer;
        std::size_t asked;
        std::string wantedPicture;
    };
    const Case cases[] = {
        {"", MessageAnswer::yes, 1, copy},
        {"--yes", MessageAnswer::no, 0, copy},
        {"--no", MessageAnswer::yes, 0, picture},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.option);
        host.machine.messageBoxes().shown.clear();
        host.machine.messageBoxes().answers = {c.answer};
        EXPECT_EQ(save(c.option), ExitCode::done);
        EXPECT_EQ(shown.size(), c.asked);
        FrameInfoClass frames;
        frames.GetPlayfileFromDisk(target);
        frames.CurrentFrame(1);
        EXPECT_EQ(frames.PicturefileName(), c.wantedPicture);
    }
}

TEST_F(SaveQuestion, IsAnsweredByTheSameOptionBehindAnEdit) {
    EXPECT_EQ(run("frames " + playfile + " insert 1 --yes"), ExitCode::done);
    EXPECT_TRUE(shown.empty());
    FrameInfoClass frames;
    frames.GetPlayfileFromDisk(playfile);
    frames.CurrentFrame(2);
    EXPECT_EQ(frames.PicturefileName(), JoinPath(host.inLibrary("Data"), "anchor.bmp"));
}

TEST_F(SaveQuestion, AnsweringItBeforehandHidesNoFailure) {
    host.machine.files().setReadOnly(host.machine.library);
    EXPECT_EQ(save("--yes"), ExitCode::failed);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].title, "Unable to save playfile");
}

} // namespace
} // namespace qrtVistrelClasses4
