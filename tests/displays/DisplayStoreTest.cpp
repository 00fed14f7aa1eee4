// Reading and writing the list of signs.
#include "DisplayTesting.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/SignListSynchronisation.h>

namespace qrtVistrelClasses4 {
namespace {

class DisplayStore : public DisplaysTest {
protected:
    DisplayStore() { displays_.AddNewDisplay("A"); }
    void expectBox(const std::string& text) { EXPECT_EQ(takeBoxes(), Texts{"! Error Occurred: " + text}); }

    const std::string backup_ = path_ + ".bak";
    const std::string noRights_ =
        "Path/File access error\r\nCheck if you have read/write rights to Vistrel Folder " +
        host_.machine.library;
};

TEST_F(DisplayStore, WritesAValueALine) {
    const char* const expected =
        "\"A\",0,0,0,#FALSE#,\"\",\"\",#FALSE#,#FALSE#,\"\",#FALSE#,0,0,0,0,#FALSE#,0,0,0,\"\",\"\",\"\","
        "\"\",0,"
        "#FALSE#,0,0,0,0,0,\"\",\"\",\"\",\"\",\"\",0,0,\"\",\"\",0,\"\",\"\",0,\"\",\"\",0,\"\",\"\",";
    std::string text = saved();
    for (std::size_t end = 0; (end = text.find("\r\n")) != text.npos;)
        text.replace(end, 2, ",");
    EXPECT_EQ(text, expected);
}

TEST_F(DisplayStore, IsMendedWhereOldFilesLeaveValuesEmpty) {
    DisplayRecord sign = signOf(1);
    const auto check = [&]<class Value>(Value DisplayRecord::*member, std::type_identity_t<Value> given,
                                        std::type_identity_t<Value> mended) {
        sign.*member = given;
        load(fileWith(sign));
        EXPECT_EQ(LoadSignList(path_).mended.size(), given == mended ? 0 : 1) << given;
        sign.*member = mended;
        EXPECT_EQ(saved(), fileWith(sign)) << given;
    };
    sign.LightSensorMinimum = 0;
    check(&DisplayRecord::LightSensorMaximum, 0, 9);
    sign.LightSensorMinimum = 12;
    check(&DisplayRecord::LightSensorMaximum, 0, 12);
    sign.LightSensorMinimum = -4;
    check(&DisplayRecord::LightSensorMaximum, -5, -4);
    sign.ConnectionMethod = kNetworkConnection;
    check(&DisplayRecord::CommPort, "COM1", "3001");
    check(&DisplayRecord::CommPort, "1e999", "1e999");
    sign.ConnectionMethod = kModemConnection;
    check(&DisplayRecord::CommPort, "", "");
    check(&DisplayRecord::BlinkRateShow, 0, 600);
    check(&DisplayRecord::BlinkRateClear, 0, 400);
}

TEST_F(DisplayStore, FillsARecordAsFarAsItCanBeRead) {
    std::string text = fileOf({0, 4});
    load(text.replace(text.find("\r\n413"), 3, "\r\nx")); // before the 13th value
    EXPECT_EQ(takeErrors(), Numbers{13});
    const SignListOutcome outcome = LoadSignList(path_);
    EXPECT_EQ(outcome.wholeSigns, 1);
    EXPECT_EQ(outcome.error->line, 48 + 13);
    EXPECT_TRUE(outcome.list == displays_.Value());
    EXPECT_EQ(outcome.list.signs.at(2).ScrollPauseDelay, signOf(4).ScrollPauseDelay);
    EXPECT_EQ(outcome.list.signs.at(2).TimeZoneAdjustment, 0);
}

TEST_F(DisplayStore, LeavesTheListAloneWithoutARecord) {
    load(fileOf({0, 1, 2}));
    load("");
    (void)files().remove(path_);
    read();
    read(JoinPath("nowhere", "Displays.dat"));
    EXPECT_EQ(takeErrors(), (Numbers{53, 76}));
    EXPECT_EQ(saved(), fileOf({0, 1, 2}));
}

TEST_F(DisplayStore, HoldsAsManySignsAsCanBeNumbered) {
    std::string ones;
    while (ones.size() < 32768 * 48 * 3)
        ones += "1\r\n";
    load(ones);
    EXPECT_EQ(displays_.TotalDisplays(), 32767);
    EXPECT_EQ(displays_.AddNewDisplay("new"), 0);
    EXPECT_EQ(displays_.Duplicate("1", "new"), 0);
    EXPECT_EQ(takeErrors(), (Numbers{6, 6, 6}));
}

TEST_F(DisplayStore, IsReadFromWhereTheSettingPointsAndWrittenBesideTheLibrary) {
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "signs.dat");
    files().put(elsewhere, fileOf({0}));
    WriteSetting("VistrelLite", "Preview", "DisplayDataFile", elsewhere);
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    displays_.RetrieveAllDisplayInfoFromDisk();
    EXPECT_EQ(trace.lines.back(), "< Sub RetrieveAllDisplayInfoFromDisk (sFileName=<Missing>)");
    read();
    EXPECT_EQ(trace.lines.back(), "< Sub RetrieveAllDisplayInfoFromDisk (sFileName=" + elsewhere + ")");
    write();
    EXPECT_EQ(trace.lines.back(), "< Sub WriteAllDisplaysToDisk (sFileName=" + path_ + ")");
    EXPECT_EQ(ReadSetting("VistrelLite", "Preview", "DisplayDataFile", "none"), path_);
}

TEST_F(DisplayStore, KeepsThePreviousListUnlessThatIsNone) {
    const std::string list = saved();
    EXPECT_EQ(files().fileNames(), Texts{path_}) << "nothing to keep";
    files().put(path_, "half a list");
    write();
    EXPECT_EQ(files().content(backup_), "half a list") << "better than nothing";
    const std::pair<std::string, bool> cases[] = {
        {list, true},
        {list.substr(0, list.size() - 2), true}, // the last line end
        {list.substr(0, list.size() - 3), false},
        {std::string(3, '\0') + list.substr(3), false},
        {"", false}};
    for (const auto& [previous, isKept] : cases) {
        files().put(path_, previous);
        files().put(backup_, "older");
        EXPECT_EQ(saved(), list);
        EXPECT_EQ(files().content(backup_), isKept ? previous : "older");
    }
    files().setReadOnly(backup_);
    displays_.RemoveDisplay(1);
    EXPECT_EQ(saved(), "") << "no sign, no line";
    EXPECT_TRUE(host_.reports.all.at(0).error.isQuiet());
    EXPECT_EQ(takeErrors(), Numbers{75}) << "but no reason not to save";
}

TEST_F(DisplayStore, LeavesWhatFittedOnAFullDisk) {
    displays_.AddNewDisplay("B");
    const std::string whole = saved();
    const std::string firstSign = whole.substr(0, whole.size() / 2);
    files().bytesLeft = whole.size() + firstSign.size();
    write();
    expectBox("61Disk full while writing Display data to disk");
    EXPECT_EQ(files().content(path_), firstSign);
    EXPECT_EQ(files().content(backup_), whole);
    files().bytesLeft.reset();
    write();
    EXPECT_EQ(files().content(backup_), whole) << "rather than what looks like a list of one sign";
}

TEST_F(DisplayStore, ShowsWhyAFileMayNotBeWritten) {
    files().put(path_, "the previous list");
    files().setReadOnly(path_);
    write();
    expectBox(noRights_);
    write(JoinPath("nowhere", "new.dat"));
    expectBox("76Path not found while writing Display data to disk");
    displays_.WriteAllDisplaysToDisk();
    expectBox(noRights_);
    EXPECT_EQ(ReadSetting("VistrelLite", "Preview", "DisplayDataFile", ""), host_.inLibrary("")) << "no name";
}

TEST_F(DisplayStore, SynchronisesOnlyWhereTheSettingIsExactlyTrueAndTrapsItsErrors) {
    struct : SignListSynchronisation {
        void synchronise(DisplayDatabaseClass& displays) override {
            saved += displays.DisplayName();
            throw RuntimeError(3024, "no such database");
        }
        std::string saved = {};
    } synchronisation;
    const ScopedSignListSynchronisation scope(synchronisation);
    for (const char* value : {"true", "True ", "", "True"}) {
        WriteSetting("Vistrel3", "Settings", "SyncPCScheduler", value);
        write();
    }
    EXPECT_EQ(takeErrors(), Numbers{3024});
    files().setReadOnly(path_);
    write();
    expectBox(noRights_);
    EXPECT_EQ(synchronisation.saved, "A") << "once";
}

} // namespace
} // namespace qrtVistrelClasses4
