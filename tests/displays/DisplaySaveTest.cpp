// Writing the list of signs where something goes wrong, and what goes along with it.
#include "DisplayTesting.h"
#include "displays/SignListSynchronisation.h"
#include "frame/RuntimeError.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {
namespace {

class DisplaySave : public DisplaysTest {
protected:
    DisplaySave() { displays_.AddNewDisplay("A"); }
    std::vector<Message>& shown() { return host_.machine.messageBoxes().shown; }
    void expectBox(const std::string& text) {
        ASSERT_EQ(shown().size(), 1u);
        EXPECT_EQ(shown()[0].title, "Error Occurred");
        EXPECT_EQ(shown()[0].text, text);
        EXPECT_EQ(shown()[0].icon, MessageIcon::critical);
        EXPECT_EQ(shown()[0].buttons, MessageButtons::ok);
        EXPECT_TRUE(host_.reports.all.empty());
        shown().clear();
    }

    const std::string previous_ = "the previous list";
    const std::string backup_ = path_ + ".bak";
    const std::string noRights_ =
        "Path/File access error\r\nCheck if you have read/write rights to Vistrel Folder " +
        host_.machine.library;
};

TEST_F(DisplaySave, KeepsThePreviousListSafeBeforeTheFileIsOpened) {
    write();
    EXPECT_EQ(files().fileNames(), Texts{path_}) << "nothing to keep";
    files().put(path_, previous_);
    bool flushed = false, opened = false;
    files().observer = [&](const FileOperation& operation) {
        flushed = flushed || operation.kind == FileOperation::flush;
        if (operation.kind == FileOperation::open && operation.path == path_) {
            opened = true;
            EXPECT_TRUE(flushed);
            EXPECT_EQ(files().content(backup_), previous_);
            EXPECT_EQ(ReadSetting("VistrelLite", "Preview", "DisplayDataFile", ""), path_);
        }
        return SystemError::none;
    };
    const std::string first = saved();
    EXPECT_TRUE(opened);
    files().observer = nullptr;
    displays_.RemoveDisplay(1);
    EXPECT_EQ(saved(), "") << "no sign, no line";
    EXPECT_EQ(files().content(backup_), first) << "always the last one";
    write();
    EXPECT_EQ(files().content(backup_), first) << "an empty file is no list";
    EXPECT_TRUE(shown().empty() && host_.reports.all.empty());
}

TEST_F(DisplaySave, GoesOnWithoutACopyThatMayNotBeMade) {
    write();
    files().put(backup_, "an older list");
    files().setReadOnly(backup_);
    EXPECT_EQ(saved().substr(0, 5), "\"A\"\r\n");
    ASSERT_EQ(host_.reports.all.size(), 1u);
    EXPECT_TRUE(host_.reports.all[0].error.isQuiet());
    EXPECT_EQ(host_.reports.all[0].procedure.procedure, "Sub WriteAllDisplaysToDisk");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{75});
    EXPECT_EQ(files().content(backup_), "an older list");
    EXPECT_TRUE(shown().empty());
}

TEST_F(DisplaySave, TellsOfAFileThatMayNotBeWritten) {
    files().put(path_, previous_);
    files().setReadOnly(path_);
    write();
    expectBox(noRights_);
    EXPECT_EQ(files().content(path_), previous_);
    EXPECT_EQ(ReadSetting("VistrelLite", "Preview", "DisplayDataFile", ""), path_);
    std::string fileName = "new.dat";
    files().setReadOnly(host_.machine.library);
    displays_.WriteAllDisplaysToDisk(fileName);
    expectBox(noRights_);
    EXPECT_EQ(fileName, host_.inLibrary("new.dat"));
    fileName = JoinPath("nowhere", "new.dat");
    displays_.WriteAllDisplaysToDisk(fileName);
    expectBox("76Path not found while writing Display data to disk");
    displays_.WriteAllDisplaysToDisk();
    expectBox(noRights_);
    EXPECT_EQ(ReadSetting("VistrelLite", "Preview", "DisplayDataFile", ""), host_.inLibrary("")) << "no name";
}

TEST_F(DisplaySave, LeavesWhatFittedOnAFullDisk) {
    const std::string whole = saved();
    displays_.AddNewDisplay("a second sign");
    const std::string longer = saved(); // than any half of the list
    displays_.RemoveDisplay(2);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        files().put(path_, longer);
        files().bytesLeft = longer.size() + size;
        write();
        expectBox("61Disk full while writing Display data to disk");
        EXPECT_EQ(files().content(path_), whole.substr(0, size));
        EXPECT_EQ(files().content(backup_), longer);
    }
    files().bytesLeft.reset();
    files().setReadOnly(path_);
    write();
    expectBox(noRights_);
    files().setReadOnly(path_, false);
    write();
    EXPECT_EQ(files().content(backup_), longer) << "rather than the half of a list";
    files().observer = [&](const FileOperation& operation) {
        const bool fails = operation.kind == FileOperation::flush && operation.path == path_;
        return fails ? SystemError::deviceFailure : SystemError::none;
    };
    write();
    expectBox("57Device I/O error while writing Display data to disk");
}

TEST_F(DisplaySave, SynchronisesOnlyWhereTheSettingIsExactlyTrueAndTrapsItsErrors) {
    struct : SignListSynchronisation {
        void synchronise(DisplayDatabaseClass& displays) override {
            ++calls;
            written = platform().files().read(displaysPath).value.text();
            synchronised = &displays;
            if (fails)
                throw RuntimeError(3024, "no such database");
        }
        int calls = 0;
        bool fails = false;
        std::string displaysPath, written;
        DisplayDatabaseClass* synchronised = nullptr;
    } synchronisation, outer;
    synchronisation.displaysPath = path_;
    const ScopedSignListSynchronisation outerScope(outer);
    const ScopedSignListSynchronisation scope(synchronisation);
    write();
    EXPECT_EQ(synchronisation.calls, 0) << "no setting";
    for (const std::string value : {"true", "TRUE", "False", "-1", "True ", "", "True"}) {
        WriteSetting("Vistrel3", "Settings", "SyncPCScheduler", value);
        synchronisation.calls = 0;
        write();
        EXPECT_EQ(synchronisation.calls, value == "True" ? 1 : 0) << value;
    }
    EXPECT_EQ(synchronisation.written.substr(0, 5), "\"A\"\r\n") << "the file is there";
    EXPECT_EQ(synchronisation.synchronised, &displays_);
    synchronisation.fails = true;
    write();
    EXPECT_EQ(host_.reports.all.at(0).procedure.procedure, "Sub WriteAllDisplaysToDisk");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{3024});
    EXPECT_TRUE(shown().empty());
    files().setReadOnly(path_);
    write();
    EXPECT_EQ(synchronisation.calls, 2) << "the save failed";
    EXPECT_EQ(outer.calls, 0);
}

} // namespace
} // namespace qrtVistrelClasses4
