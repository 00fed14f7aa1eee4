#include "settings/MostRecentlyUsed.h"

#include "TestHost.h"
#include "settings/RegistrySettings.h"

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

std::string lines(const Texts& entries) {
    std::string text;
    for (const std::string& entry : entries)
        text += '"' + entry + "\"\r\n";
    return text;
}

class MostRecentlyUsedTest : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    std::string content() { return files().content(path_).value_or("no file"); }

    TestHost host_;
    const std::string path_ = host_.inLibrary("VistrelLite.MRU");
};

TEST_F(MostRecentlyUsedTest, AFirstNameMakesTheFile) {
    MostRecentlyUsed recent;
    EXPECT_EQ(recent.TotalFilesInList(), 0);
    EXPECT_EQ(recent.GetFirstFileName(), "");
    recent.AddFileToMostRecentlyUsedList("");
    EXPECT_EQ(content(), "no file");
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    recent.AddFileToMostRecentlyUsedList("A");
    EXPECT_EQ(content(), lines({"A", ""}));
    EXPECT_THAT(trace.lines,
                testing::IsSupersetOf({"> Sub AddEntry (sFileName=A)", "> Sub GetMRUFromDisk ()",
                                       "> Sub RemoveEntry (sFileName=A)", "> Sub WriteMRUToDisk ()"}));
    for (const ErrorReport& report : host_.reports.all)
        EXPECT_TRUE(report.error.number() == 53 && report.error.isQuiet());
    host_.reports.all.clear();
    recent.AddFileToMostRecentlyUsedList("B");
    recent.AddFileToMostRecentlyUsedList("a");
    EXPECT_EQ(content(), lines({"a", "B", ""}));
    EXPECT_EQ(recent.TotalFilesInList(), 3);
    EXPECT_EQ(recent.ClassDebugID() + 1, MostRecentlyUsed().ClassDebugID());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(MostRecentlyUsedTest, ChangesWhatTheFileHolds) {
    const struct {
        const char *why, *name;
        std::string before;
        Texts added, removed;
    } cases[] = {
        {"new", "c", lines({"a", "b", ""}), {"c", "a", "b", ""}, {"a", "b", ""}},
        {"every spelling", "B", lines({"b", "a", "B"}), {"B", "a", ""}, {"a", ""}},
        {"beyond ASCII", "\311t\351", lines({"a", "\351T\311", ""}), {"\311t\351", "a", ""}, {"a", ""}},
        {"empty entries", "aa", lines({"", "a", "", "b"}), {"aa", "a", "b", ""}, {"a", "b", ""}},
        {"an empty file", "a", "", {"a", ""}, {""}},
        {"an empty name", "", lines({"a", "", "b"}), {"a", "", "b"}, {"a", "b", ""}}};
    files().put(path_, "");
    MostRecentlyUsed recent;
    for (const auto& row : cases) {
        files().put(path_, row.before);
        recent.AddFileToMostRecentlyUsedList(row.name);
        EXPECT_EQ(content(), lines(row.added)) << row.why;
        files().put(path_, row.before);
        recent.RemoveFileFromMostRecentlyUsed(row.name);
        EXPECT_EQ(content(), lines(row.removed)) << row.why;
    }
    recent.PurgeMRUList();
    EXPECT_EQ(recent.TotalFilesInList(), 0);
    EXPECT_EQ(content(), lines({"a", "b", ""}));
    EXPECT_TRUE(host_.reports.all.empty());
    const std::string damaged = lines({"a"}) + "\"damaged";
    files().put(path_, damaged);
    recent.AddFileToMostRecentlyUsedList("c");
    EXPECT_EQ(content(), lines({"c", "a", ""})) << "as far as it can be read";
    EXPECT_EQ(files().content(path_ + ".bak"), damaged);
    EXPECT_EQ(host_.reports.all.at(0).error.number(), 62);
}

TEST_F(MostRecentlyUsedTest, GivesEntriesOneByOneAndByNumber) {
    files().put(path_, lines({"a", "b", ""}));
    MostRecentlyUsed recent;
    EXPECT_EQ(recent.GetNextFile(), "a") << "nothing was asked for before";
    EXPECT_EQ(recent.GetFirstFileName(), "a");
    for (const char* next : {"b", "", "", ""})
        EXPECT_EQ(recent.GetNextFile(), next);
    for (const char* name : {"c", "d", "e", "f"})
        recent.AddFileToMostRecentlyUsedList(name);
    EXPECT_EQ(recent.GetNextFile(), "b") << "it counted on, to the sixth";
    EXPECT_EQ(recent.GetFileName(6), "b");
    EXPECT_EQ(recent.GetFileName(8), "");
    EXPECT_TRUE(host_.reports.all.empty());
    EXPECT_EQ(recent.GetFileName(0), "");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{9});
}

TEST_F(MostRecentlyUsedTest, IsReadFromWhereTheSettingPointsAndWrittenBesideTheLibrary) {
    const auto setting = [] { return ReadSetting("VistrelLite", "Settings", "MRU", "none"); };
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "list");
    files().put(path_, lines({"a", ""}));
    files().put(elsewhere, lines({"b", ""}));
    WriteSetting("VistrelLite", "Settings", "MRU", elsewhere);
    MostRecentlyUsed recent;
    EXPECT_EQ(setting(), elsewhere);
    recent.AddFileToMostRecentlyUsedList("c");
    EXPECT_EQ(setting(), path_);
    EXPECT_EQ(content(), lines({"c", "b", ""}));
    EXPECT_EQ(files().content(elsewhere), lines({"b", ""}));
    WriteSetting("VistrelLite", "Settings", "MRU", JoinPath(host_.inLibrary("gone"), "list"));
    recent.AddFileToMostRecentlyUsedList("d");
    EXPECT_EQ(setting(), path_) << "no folder, no names to lose";
}

} // namespace
} // namespace qrtVistrelClasses4
