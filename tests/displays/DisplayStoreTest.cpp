// Reading and writing the list of signs.
#include "DisplayTesting.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/SignListSynchronisation.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

const std::string kWriting = " while writing Display data to disk";

class DisplayStore : public DisplaysTest {
protected:
    DisplayStore() { displays_.AddNewDisplay("A"); }
    void expectBox(const std::string& text) {
        EXPECT_EQ(takeBoxes(), text.empty() ? Texts() : Texts{"! Error Occurred: " + text});
    }

    const std::string backup_ = path_ + ".bak";
    const std::string noRights_ =
        "Path/File access error\r\nCheck if you have read/write rights to Vistrel Folder " +
        host_.machine.library;
};

TEST_F(DisplayStore, WritesAValueALine) {
    std::string text = saved();
    for (std::size_t end = 0; (end = text.find("\r\n")) != text.npos;)
        text.replace(end, 2, ",");
    std::ranges::replace(text, '"', '|');
    EXPECT_EQ(text, "|A|,0,0,0,#FALSE#,||,||,#FALSE#,#FALSE#,||,#FALSE#,0,0,0,0,#FALSE#,0,0,0,||,||,||,||,0,"
                    "#FALSE#,0,0,0,0,0,||,||,||,||,||,0,0,||,||,0,||,||,0,||,||,0,||,||,");
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
    const std::int16_t brightness[][3] = {{0, 0, 9}, {12, 0, 12}, {-4, -5, -4}};
    for (const auto& [minimum, given, mended] : brightness) {
        sign.LightSensorMinimum = minimum;
        check(&DisplayRecord::LightSensorMaximum, given, mended);
    }
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
    write();
    EXPECT_EQ(files().kindOf(backup_ + "2"), EntryKind::file) << "it held one more";
    EXPECT_EQ(takeErrors(), (Numbers{6, 6, 6, 58}));
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

TEST_F(DisplayStore, IsSavedWithoutACopyUnlessThatCouldLoseWhatWasThere) {
    using enum SystemError;
    const std::string list = saved(), whole = fileOf({0}), damaged = whole + ",";
    const std::string keeping = " while keeping a copy of the previous Display data";
    const struct {
        std::string previous;
        SystemError fault; ///< Of the first writes; without one, the folder takes no new file.
        int writes;
        std::string box;
        bool isSaved;
    } cases[] = {
        {whole, diskFull, 1, "61Disk full" + keeping + ". The new Display data has been saved.", true},
        {whole, diskFull, 2, "61Disk full" + kWriting, false},
        {damaged, diskFull, 1, "", true}, // a rename takes no space
        {whole, deviceFailure, 1, "57Device I/O error" + keeping, false},
        {whole, none, 0, "", true},
        {damaged + "2", none, 0, noRights_, false}};
    for (const auto& row : cases) {
        files().put(path_, row.previous);
        files().setReadOnly(host_.machine.library, row.fault == none);
        files().observer = [&row, count = 0](const FileOperation& operation) mutable {
            return operation.kind == FileOperation::write && ++count <= row.writes ? row.fault : none;
        };
        EXPECT_EQ(saved(), row.isSaved ? list : row.previous) << row.box;
        expectBox(row.box);
    }
    EXPECT_EQ(files().fileNames(), (Texts{path_, backup_ + "2"}));
    EXPECT_EQ(takeErrors(), (Numbers{61, 61, 58, 57, 75, 75}));
}

TEST_F(DisplayStore, LeavesWhatFittedOnAFullDisk) {
    displays_.AddNewDisplay("B");
    const std::string whole = saved();
    files().bytesLeft = whole.size() + whole.size() / 2;
    write();
    expectBox("61Disk full" + kWriting);
    EXPECT_EQ(files().content(path_), whole.substr(0, whole.size() / 2));
    files().bytesLeft.reset();
    write();
    EXPECT_EQ(files().content(backup_), whole) << "rather than what looks like a list of one sign";
    files().setReadOnly(host_.machine.library); // the copy is overwritten as well
    files().bytesLeft = whole.size() / 2;
    EXPECT_EQ(saved(), whole);
    expectBox("61Disk full" + kWriting);
    EXPECT_EQ(takeErrors(), Numbers{61});
}

TEST_F(DisplayStore, ShowsWhyAFileMayNotBeWritten) {
    write(JoinPath("nowhere", "new.dat"));
    expectBox("76Path not found" + kWriting);
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
