#include "HostTest.h"
#include "playfile/OperatorQuestions.h"
#include "settings/OperatorMessages.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

namespace qrtVistrelClasses4 {
namespace {

class Unattended : public HostTest {
protected:
    void set(const char* value) { host_.machine.environment["QRTVISTREL_UNATTENDED"] = value; }
    std::string log() { return files().content(host_.inLibrary("VistrelErrors.log")).value_or(""); }

    const ScopedErrorReporter reporter_{defaultErrorReporter()};
};

TEST_F(Unattended, IsWhatTheEnvironmentSaysElseTheUserElseTheMachine) {
    MemoryRegistryStore& registry = host_.machine.registry();
    const auto store = [&](RegistryHive hive, const char* value) {
        (void)registry.writeString({hive, "Software\\Brivox\\Vistrel3\\Settings"}, "Unattended", value);
    };
    EXPECT_FALSE(IsUnattended());
    store(RegistryHive::localMachine, "True");
    EXPECT_TRUE(IsUnattended());
    store(RegistryHive::currentUser, "0");
    EXPECT_FALSE(IsUnattended());
    store(RegistryHive::currentUser, "1");
    EXPECT_TRUE(IsUnattended());
    for (const char* no : {"0", " 0 ", "False ", " "}) {
        set(no);
        EXPECT_FALSE(IsUnattended()) << no;
    }
    for (const char* yes : {"1", "-1 ", "true", "yes", "no"}) {
        set(yes);
        EXPECT_TRUE(IsUnattended()) << yes;
    }
    const ScopedMessageBoxes hosts(host_.machine.messageBoxes());
    EXPECT_FALSE(IsUnattended()) << "boxes of a host are its own affair";
    host_.machine.environment.clear();
    registry.observer = [] { return SystemError::accessDenied; };
    EXPECT_FALSE(IsUnattended());
}

TEST_F(Unattended, LogsEveryBoxAndAnswersNo) {
    set("1");
    FrameInfoClass frames;
    (void)frames.FrameName();
    const std::string trapped = log();
    EXPECT_TRUE(trapped.starts_with("2001-02-03 04:05:06  Error 9: ")) << trapped;
    EXPECT_FALSE(frames.WritePlayfileToDisk(host_.inLibrary("none/a.playfile")));
    EXPECT_EQ(log(), trapped + "2001-02-03 04:05:06  Unattended, not shown: Unable to save playfile\r\n"
                               "    Error writing to file.\r\n"
                               "    Check if file is read-only and you have rights to read/write to the "
                               "playfile folder.\r\n"
                               "Answer: OK\r\n");
    host_.machine.messageBoxes().answers = {MessageAnswer::yes};
    EXPECT_FALSE(AskWhetherToOpenLegacyPlayfile());
    EXPECT_TRUE(log().ends_with("    Do you wish to proceed!\r\nAnswer: No\r\n")) << log();
    EXPECT_EQ(host_.machine.console().error, "");
    files().setReadOnly(host_.inLibrary("VistrelErrors.log"));
    EXPECT_FALSE(AskWhetherToOpenLegacyPlayfile()) << "also without a log";
    EXPECT_TRUE(host_.machine.console().error.ends_with("Answer: No\r\n")) << "which is not silent";
    const std::string local = host_.machine.specialFolders[kLocalDataFolder] = host_.inLibrary("local");
    files().makeFolders(local);
    EXPECT_FALSE(AskWhetherToOpenLegacyPlayfile());
    EXPECT_TRUE(files()
                    .content(JoinPath(JoinPath(local, "qrtVistrelClasses4"), "VistrelErrors.log"))
                    .value_or("")
                    .ends_with("Answer: No\r\n"));
}

} // namespace
} // namespace qrtVistrelClasses4
