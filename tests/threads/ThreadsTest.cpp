// Several threads at work at once, each with objects of its own. A build of this test alone runs under the
// thread sanitizer: cmake --workflow --preset threads
#include "TempFolder.h"
#include "commands/PreviewText.h"
#include "fonts/classFontMaster.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/DefaultErrorReport.h"
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

constexpr int kThreads = 4;
constexpr int kRounds = 10;

struct SilentBoxes final : MessageBoxes {
    MessageAnswer show(const Message&) override { return MessageAnswer::no; }
    bool attended() override { return true; }
};

/// What one thread does, again and again, beside the others.
class Worker {
public:
    explicit Worker(int number)
        : name_("worker" + std::to_string(number)), folder_(JoinPath(platform().libraryFolder(), name_)) {
        (void)platform().files().createFolder(folder_);
        keepSigns(); // now, since a list is empty for a moment while it is made
        useSharedFiles();
    }
    void work() const {
        for (int round = 0; round < kRounds; ++round) {
            keepSettings(std::to_string(round));
            keepPlayfile(std::to_string(round));
            keepSigns();
            useSharedFiles();
            traced({"Threads.bas", ProcedureKind::Sub, "Fail"}, [&] { throw RuntimeError(6, name_); });
        }
    }

private:
    std::string inFolder(const std::string& name) const { return JoinPath(folder_, name); }

    void keepSettings(const std::string& value) const {
        RegistryRoutines key;
        key.Subkey("Software\\Threads\\" + name_);
        EXPECT_TRUE(key.SetRegistryValue("Round", value));
        EXPECT_EQ(key.GetRegistryValue("Round", ""), value);
        EXPECT_EQ(key.EnumRegistryValues(), std::vector<std::string>{"Round"});
        PrivateIni ini;
        ini.Register("Section", inFolder("own.ini"));
        EXPECT_TRUE(ini.Write("Round", value));
        EXPECT_EQ(ini.Read("Round", ""), value);
    }
    void keepPlayfile(const std::string& text) const {
        const std::string path = inFolder("own.playfile");
        FrameInfoClass written, read;
        written.TotalFrames(3);
        written.CurrentFrame(3);
        written.CurrentLineText(text);
        EXPECT_TRUE(written.WritePlayfileToDisk(path));
        EXPECT_TRUE(read.GetPlayfileFromDisk(path));
        read.CurrentFrame(3);
        EXPECT_EQ(read.CurrentLineText(), text);
    }
    /// A setting of the machine says which list is read, so that it may be one of another thread.
    void keepSigns() const {
        std::string path = name_ + ".dat";
        DisplayDatabaseClass written, read;
        written.AddNewDisplay("Pier");
        written.AddNewDisplay("Gate");
        written.WriteAllDisplaysToDisk(path);
        read.RetrieveAllDisplayInfoFromDisk(path);
        EXPECT_EQ(read.TotalDisplays(), 2);
    }
    void useSharedFiles() const {
        SettingsInfoClass settings;
        settings.GetSettingsFromDisk();
        settings.SaveSettingsToDisk();
        MostRecentlyUsed().AddFileToMostRecentlyUsedList(name_);
        EXPECT_FALSE(PreviewText("|hh|:|mm|", 0).empty());
        clsCommandInterface().sCommandBytesByKey("##" + name_, name_);
        (void)FrameInfoClass().LoadNewEffectLists(nullptr, nullptr, nullptr, nullptr);
        EXPECT_FALSE(classFontMaster().LoadFontByNum(0, 0)) << "there is no font here";
    }

    std::string name_, folder_;
};

TEST(Threads, MayUseDifferentObjectsAtTheSameTime) {
    const TempFolder home;
    const auto machine = makePlatform({home.path()});
    ReplacementFile effects(machine->files(), home.file("NewEffects.ini"));
    EXPECT_EQ(effects.commit(), SystemError::none);
    SilentBoxes boxes;
    const ScopedPlatform platformScope(*machine);
    const ScopedMessageBoxes boxesScope(boxes);
    std::vector<Worker> workers;
    for (int number = 0; number < kThreads; ++number)
        workers.emplace_back(number);
    std::vector<std::thread> threads;
    for (const Worker& worker : workers)
        threads.emplace_back([&worker] { worker.work(); });
    for (std::thread& thread : threads)
        thread.join();
    const FileBytes log = machine->files().read(home.file(std::string(kErrorLogName))).valueOr({});
    for (int number = 0; number < kThreads; ++number) {
        const std::string entry =
            "Error 6: worker" + std::to_string(number) + "\r\nIn Threads.bas, Sub Fail ()";
        std::size_t count = 0;
        for (std::size_t at = 0; (at = log.text().find(entry, at)) != std::string_view::npos; ++at)
            ++count;
        EXPECT_EQ(count, static_cast<std::size_t>(kRounds)) << number;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
