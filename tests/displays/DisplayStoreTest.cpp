// Reading and writing the list of signs.
#include "DisplayTesting.h"
#include "displays/SignListSynchronisation.h"
#include "settings/RegistrySettings.h"

#include <algorithm>

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

TEST_F(DisplayStore, IsMendedWhereOldFilesLeaveValuesEmpty) {
    const struct {
        const char* why;
        std::vector<std::pair<int, const char*>> given; ///< Line and value.
        int line;
        const char* mended;
    } cases[] = {
        {"an unset maximum", {{18, "0"}, {19, "0"}}, 19, "9"},
        {"an unset maximum below the minimum", {{18, "12"}, {19, "0"}}, 19, "12"},
        {"a maximum below the minimum", {{18, "-4"}, {19, "-5"}}, 19, "-4"},
        {"a serial port in the network", {{22, "\"COM1\""}, {24, "2"}}, 22, "\"3001\""},
        {"a port beyond all numbers", {{22, "\"1e999\""}, {24, "2"}}, 22, "\"1e999\""},
        {"no port by modem", {{22, "\"\""}, {24, "3"}}, 22, "\"\""},
        {"blink on-time", {{29, "0"}}, 29, "600"},
        {"blink off-time", {{30, "0"}}, 30, "400"},
        {"negative blink times stay", {{30, "-1"}}, 30, "-1"},
    };
    for (const auto& row : cases) {
        Texts lines = linesOf(1);
        for (const auto& [line, value] : row.given)
            lines.at(line - 1) = value;
        load(fileText(lines));
        lines.at(row.line - 1) = row.mended;
        EXPECT_EQ(saved(), fileText(lines)) << row.why;
    }
}

TEST_F(DisplayStore, FillsARecordAsFarAsItCanBeRead) {
    for (const auto& [line, value, error] : {std::tuple{13, "\"x\"", 13}, {48, "\"a text without end", 62}}) {
        load(fileOf({0, 1, 2}));
        Texts lines = linesOf(4);
        lines.at(line - 1) = value;
        load(fileOf({0}) + fileText(lines));
        EXPECT_EQ(takeErrors(), Numbers{error});
        const Texts blank = linesOf(kBlank);
        std::copy(blank.begin() + line - 1, blank.end(), lines.begin() + line - 1);
        EXPECT_EQ(saved(), fileOf({0}) + fileText(lines));
    }
}

TEST_F(DisplayStore, KeepsTheWholeSignsOfAFileThatIsCutShort) {
    const std::string first = fileOf({1}), both = fileOf({1, 2});
    for (std::size_t size = 1; size <= both.size(); ++size) {
        load(both.substr(0, size));
        EXPECT_LE(takeErrors().size(), 1u) << size;
        displays_.CurrentDisplayNumber(2);
        displays_.DisplayName("cut"); // a last sign without name would hide the others
        takeErrors();                 // there may be no second one
        EXPECT_TRUE(saved().starts_with(first) || size < first.size()) << size;
    }
}

TEST_F(DisplayStore, LeavesTheListAloneWithoutARecord) {
    load(fileOf({0, 1, 2}));
    load("");
    (void)files().remove(path_);
    read();
    read(JoinPath("nowhere", "Displays.dat"));
    EXPECT_EQ(takeErrors(), (Numbers{53, 76}));
    EXPECT_EQ(saved(), fileOf({0, 1, 2}));
    load(fileOf({0}) + "\r\n");
    EXPECT_EQ(takeErrors(), Numbers{62}) << "an empty line begins a record";
    EXPECT_EQ(displays_.TotalDisplays(), 0) << "whose name it is";
}

TEST_F(DisplayStore, HoldsAsManySignsAsCanBeNumbered) {
    load(fileText(Texts(32768 * 48, "1")));
    EXPECT_EQ(displays_.TotalDisplays(), 32767);
    EXPECT_EQ(displays_.AddNewDisplay("new"), 0);
    EXPECT_EQ(displays_.Duplicate("1", "new"), 0);
    EXPECT_EQ(takeErrors(), (Numbers{6, 6, 6}));
    displays_.RemoveDisplay(32767);
    EXPECT_EQ(displays_.AddNewDisplay("new"), 32767);
    EXPECT_EQ(std::ranges::count(saved(), '\n'), 32767 * 48);
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
    EXPECT_EQ(files().content(path_), fileOf({0}));
}

TEST_F(DisplayStore, KeepsThePreviousListUnlessThatIsNone) {
    const std::string list = saved();
    EXPECT_EQ(files().fileNames(), Texts{path_}) << "nothing to keep";
    files().put(path_, "half a list");
    write();
    EXPECT_EQ(files().content(backup_), "half a list") << "better than nothing";
    const struct {
        const char* why;
        std::string previous;
        bool isKept;
    } cases[] = {{"whole", list, true},
                 {"without its last line end", list.substr(0, list.size() - 2), true},
                 {"cut short", list.substr(0, list.size() - 3), false},
                 {"with a piece left out", std::string(3, '\0') + list.substr(3), false},
                 {"empty", "", false}};
    for (const auto& row : cases) {
        files().put(path_, row.previous);
        files().put(backup_, "older");
        EXPECT_EQ(saved(), list);
        EXPECT_EQ(files().content(backup_), row.isKept ? row.previous : "older") << row.why;
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

TEST_F(DisplayStore, TellsOfAFileThatMayNotBeWritten) {
    files().put(path_, "the previous list");
    files().setReadOnly(path_);
    write();
    expectBox(noRights_);
    EXPECT_EQ(files().content(path_), "the previous list");
    write(JoinPath("nowhere", "new.dat"));
    expectBox("76Path not found while writing Display data to disk");
    displays_.WriteAllDisplaysToDisk();
    expectBox(noRights_);
    EXPECT_EQ(ReadSetting("VistrelLite", "Preview", "DisplayDataFile", ""), host_.inLibrary("")) << "no name";
}

TEST_F(DisplayStore, SynchronisesOnlyWhereTheSettingIsExactlyTrueAndTrapsItsErrors) {
    struct : SignListSynchronisation {
        void synchronise(DisplayDatabaseClass& displays) override {
            const FileBytes file = platform().files().read(path).valueOr({});
            written.push_back(displays.DisplayName() + " " + std::string(file.text().substr(0, 3)));
            throw RuntimeError(3024, "no such database");
        }
        std::string path = {};
        Texts written = {};
    } synchronisation;
    synchronisation.path = path_;
    const ScopedSignListSynchronisation scope(synchronisation);
    for (const char* value : {"True", "true", "True ", ""}) {
        WriteSetting("Vistrel3", "Settings", "SyncPCScheduler", value);
        write();
    }
    EXPECT_EQ(synchronisation.written, Texts{"A \"A\""}) << "the file is there";
    EXPECT_EQ(takeErrors(), Numbers{3024});
    WriteSetting("Vistrel3", "Settings", "SyncPCScheduler", "True");
    files().setReadOnly(path_);
    write();
    expectBox(noRights_);
    EXPECT_EQ(synchronisation.written.size(), 1u) << "the save failed";
}

} // namespace
} // namespace qrtVistrelClasses4
