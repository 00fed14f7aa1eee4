// What the operator is asked on Windows before a playfile of the older format is opened.
#include "BoxWatcher.h"
#include "LegacyBytes.h"
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyQuestionBox, DecidesTheResultAndIsNotShownWhenMessagesAreSuppressed) {
    TestHost host;
    const auto machine = makePlatform();
    const ScopedMessageBoxes realBoxes(machine->messageBoxes());
    const std::string path = host.inLibrary("old.PL2");
    host.machine.files().put(path, legacyPlayfile({{.text = "A"}}));
    FrameInfoClass playfile;
    bool result = false;
    const auto open = [&] { result = playfile.GetPlayfileFromDisk(path); };
    const std::string title = "WARNING! Legacy File";
    const std::string question = PressInBox(title, IDYES, open);
    EXPECT_TRUE(result);
    EXPECT_TRUE(question.ends_with("as a Vistrel 3 playfile.\r\nDo you wish to proceed!")) << question;
    playfile.TotalFrames(20);
    EXPECT_EQ(PressInBox(title, IDNO, open), question);
    EXPECT_FALSE(result);
    EXPECT_EQ(playfile.TotalFrames(), 1) << "the frames are there all the same";
    playfile.SetSuppressMessages(true);
    open();
    EXPECT_TRUE(result);
}

} // namespace
} // namespace qrtVistrelClasses4
