// Several threads at work at once, each with objects of its own. The preset `threads` builds this test alone,
// with the thread sanitizer.
#include "TempFolder.h"
#include "commands/PreviewText.h"
#include "fonts/classFontMaster.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/ErrorLog.h"
#include "settings/IniFile.h"
#include "settings/RegistryRoutines.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kRounds = 10;

struct SilentBoxes final : MessageBoxes {
    MessageAnswer show(const Message&) override { return MessageAnswer::no; }
    bool attended() override { return true; }
};

std::string folderOf(const std::string& worker) { return JoinPath(platform().libraryFolder(), worker); }

void changeOwnFiles(const std::string& worker, const std::string& value) {
    const std::string playfile = JoinPath(folderOf(worker), "own.playfile");
    RegistryRoutines key;
    key.Subkey("Software\\Threads\\" + worker);
    EXPECT_TRUE(key.SetRegistryValue("Round", value));
    EXPECT_EQ(key.GetRegistryValue("Round", ""), value);
    EXPECT_EQ(key.EnumRegistryValues(), std::vector<std::string>{"Round"});
    PrivateIni ini;
    ini.Register("Section", JoinPath(folderOf(worker), "own.ini"));
    EXPECT_TRUE(ini.Write("Round", value));
    EXPECT_EQ(ini.Read("Round", ""), value);
    FrameInfoClass written, read;
    written.CurrentFrame(1);
    written.FrameName(value);
    EXPECT_TRUE(written.WritePlayfileToDisk(playfile) && read.GetPlayfileFromDisk(playfile));
    EXPECT_TRUE(read.Value().frames == written.Value().frames);
}

/// A setting of the machine says which list of signs is read, so that it may be one of another thread.
void changeSharedFiles(const std::string& worker) {
    std::string path = worker + ".dat";
    DisplayDatabaseClass written, read;
    written.AddNewDisplay("Pier");
    written.WriteAllDisplaysToDisk(path);
    read.RetrieveAllDisplayInfoFromDisk(path);
    EXPECT_EQ(read.TotalDisplays(), 1);
    SettingsInfoClass settings;
    settings.GetSettingsFromDisk();
    settings.SaveSettingsToDisk();
    MostRecentlyUsed().AddFileToMostRecentlyUsedList(worker);
    EXPECT_FALSE(PreviewText("|hh|:|mm|", 0).empty());
    clsCommandInterface().sCommandBytesByKey("##" + worker, worker);
    (void)FrameInfoClass().LoadNewEffectLists(nullptr, nullptr, nullptr, nullptr);
    EXPECT_FALSE(classFontMaster().LoadFontByNum(0, 0)) << "there is no font here";
}

void work(const std::string& worker) {
    for (int round = 0; round < kRounds; ++round) {
        changeOwnFiles(worker, std::to_string(round));
        changeSharedFiles(worker);
        traced({"Threads.bas", ProcedureKind::Sub, "Fail"}, [&] { throw RuntimeError(6, worker); });
    }
}

TEST(Threads, MayUseDifferentObjectsAtTheSameTime) {
    const TempFolder home;
    const auto machine = makePlatform({home.path()});
    ReplacementFile effects(machine->files(), home.file("NewEffects.ini"));
    EXPECT_EQ(effects.commit(), SystemError::none);
    SilentBoxes boxes;
    const ScopedPlatform platformScope(*machine);
    const ScopedMessageBoxes boxesScope(boxes);
    const std::string workers[] = {"worker0", "worker1", "worker2", "worker3"};
    for (const std::string& worker : workers) {
        (void)machine->files().createFolder(folderOf(worker));
        changeSharedFiles(worker); // now, since a list of signs is empty for a moment while it is made
    }
    std::vector<std::thread> threads;
    for (const std::string& worker : workers)
        threads.emplace_back(work, worker);
    for (std::thread& thread : threads)
        thread.join();
    const FileBytes log = machine->files().read(home.file(std::string(kErrorLogName))).valueOr({});
    for (const std::string& worker : workers) {
        int count = 0;
        for (std::size_t at = 0; (at = log.text().find("Error 6: " + worker, at)) != std::string_view::npos;
             ++at)
            ++count;
        EXPECT_EQ(count, kRounds) << worker;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
