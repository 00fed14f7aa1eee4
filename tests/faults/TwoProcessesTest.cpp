// Two processes that change the same files at once. QRT_ROUNDS says how often each does, by default a
// hundred times. On Windows this program is started twice; QRT_PROCESS says which process each one is, and
// QRT_HOME in which folder both work.
#include "TempFolder.h"
#include "TestHost.h"
#include "settings/IniFile.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <set>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace qrtVistrelClasses4 {
namespace {

constexpr int kProcesses = 2;
constexpr int kNames = 10; ///< Of each process.
const int kRounds = std::atoi(std::getenv("QRT_ROUNDS") ? std::getenv("QRT_ROUNDS") : "100");

std::string nameOf(int process, int number) {
    return "##" + std::to_string(process) + "-" + std::to_string(number % kNames);
}
std::set<std::string> allNames() {
    std::set<std::string> names;
    for (int number = 0; number < kProcesses * kNames; ++number)
        names.insert(nameOf(number / kNames, number));
    return names;
}

/// The library on the system's own files, below one folder.
struct Host {
    explicit Host(const std::string& folder) : machine(makePlatform({folder})) {}
    bool isQuiet() const { return reports.all.empty() && boxes.shown.empty(); }

    std::unique_ptr<Platform> machine;
    KeptReports reports;
    MemoryMessageBoxes boxes;
    ScopedPlatform platformScope{*machine};
    ScopedErrorReporter reporterScope{reports};
    ScopedMessageBoxes boxesScope{boxes};
};

/// What this process wrote last under each of its names is still there. `write` and `read` take a name.
template <class Write, class Read>
bool changeValues(int process, int round, Write write, Read read) {
    const std::string name = nameOf(process, round), next = nameOf(process, round + 1);
    return write(name, std::to_string(round)) && read(name) == std::to_string(round) &&
           (round < kNames || read(next) == std::to_string(round + 1 - kNames));
}

bool changeSettings(int process, int round) {
    const auto write = [](const std::string& name, const std::string& value) {
        WriteSetting("Application", "Section", name, value);
        return true;
    };
    return changeValues(process, round, write, [](const std::string& name) {
        return ReadSetting("Application", "Section", name, "");
    });
}

bool changeIniFile(int process, int round) {
    PrivateIni ini;
    ini.Register("Section", JoinPath(platform().libraryFolder(), "shared.ini"));
    return changeValues(
        process, round, [&](const auto& name, const auto& value) { return ini.Write(name, value); },
        [&](const auto& name) { return ini.Read(name, ""); });
}

bool changeRecentFiles(int process, int round) {
    MostRecentlyUsed recent;
    recent.AddFileToMostRecentlyUsedList(nameOf(process, round));
    std::set<std::string> known = allNames();
    for (std::int16_t number = 1; number < recent.TotalFilesInList(); ++number)
        if (known.erase(recent.GetFileName(number)) != 1)
            return false;
    return true;
}

bool changeCommands(int process, int round) {
    clsCommandInterface table;
    table.sCommandBytesByKey(nameOf(process, round), "bytes");
    std::set<std::string> known = allNames();
    for (std::int16_t number = 1; number <= table.iTotalCommands(); ++number)
        if (number > BuiltInCommandCount() &&
            (known.erase(table.sCommandKeyByNum(number)) != 1 || table.sCommandBytesByNum(number) != "bytes"))
            return false;
    return true;
}

/// The names of signs say which process wrote the list, and when. The lists of the processes differ in
/// length.
bool changeSigns(int process, int round) {
    const auto signsOf = [](int writer) { return writer == 0 ? 40 : 25; };
    DisplayDatabaseClass written, read;
    for (int sign = 1; sign <= signsOf(process); ++sign)
        written.AddNewDisplay(std::to_string(process) + " in round " + std::to_string(round) + ", sign " +
                              std::to_string(sign));
    std::string fileName = "Displays.dat";
    written.WriteAllDisplaysToDisk(fileName);
    read.RetrieveAllDisplayInfoFromDisk(fileName);
    const std::string first = read.DisplayName(), start = first.substr(0, first.rfind(' ') + 1);
    const std::int16_t total = read.TotalDisplays();
    for (std::int16_t sign = 1; sign <= total; ++sign)
        if (read.FindDisplayByName(start + std::to_string(sign)) != sign)
            return false;
    return total == signsOf(first.starts_with('0') ? 0 : 1);
}

struct Change {
    const char* name;
    bool (*change)(int process, int round);
};

class TwoProcesses : public testing::TestWithParam<Change> {
protected:
    /// Makes the files, so that none is missing later.
    void start(int process) {
        Host host(home());
        (void)GetParam().change(process, 0);
    }
    /// Whether every round of this process went well.
    bool run(int process, int rounds) {
        Host host(home());
        for (int round = 0; round < rounds; ++round) {
            if (!GetParam().change(process, round) || !host.isQuiet()) {
                std::cerr << "process " << process << ", round " << round << '\n';
                for (const ErrorReport& report : host.reports.all)
                    std::cerr << report.error.number() << ' ' << report.procedure.procedure << '\n';
                for (const Message& box : host.boxes.shown)
                    std::cerr << box.text << '\n';
                return false;
            }
        }
        return true;
    }

    std::string home() const {
        const char* home = std::getenv("QRT_HOME");
        return home ? home : folder_.path();
    }

    TempFolder folder_;
};

TEST_P(TwoProcesses, ChangeTheSameFileWithoutMixingItOrLosingAKey) {
#ifdef _WIN32
    const char* process = std::getenv("QRT_PROCESS");
    if (!process)
        GTEST_SKIP();
    start(std::atoi(process));
    EXPECT_TRUE(run(std::atoi(process), kRounds));
#else
    start(0);
    pid_t children[kProcesses] = {};
    for (int process = 0; process < kProcesses; ++process)
        if ((children[process] = ::fork()) == 0)
            ::_exit(run(process, kRounds) ? 0 : 1);
    for (const pid_t child : children) {
        int status = 1;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    EXPECT_TRUE(run(0, kNames) && run(1, kNames)) << "afterwards";
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
        EXPECT_NE(entry.path().extension(), ".tmp");
#endif
}

constexpr Change kChanges[] = {{"IniFile", changeIniFile},
                               {"Settings", changeSettings},
                               {"RecentFiles", changeRecentFiles},
                               {"CommandTable", changeCommands},
                               {"Signs", changeSigns}};
INSTANTIATE_TEST_SUITE_P(Stores, TwoProcesses, testing::ValuesIn(kChanges),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace qrtVistrelClasses4
