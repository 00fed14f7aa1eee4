#include "settings/MostRecentlyUsed.h"

#include "HostTest.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {
namespace {

std::string lines(const Texts& entries) {
    std::string text;
    for (const std::string& entry : entries)
        text += '"' + entry + "\"\r\n";
    return text;
}

class MostRecentlyUsedTest : public HostTest {
protected:
    std::string content() { return files().content(path_).value_or("no file"); }
    const std::string path_ = host_.inLibrary("VistrelLite.MRU");
};

TEST_F(MostRecentlyUsedTest, AFirstNameMakesTheFile) {
    MostRecentlyUsed recent;
    recent.AddFileToMostRecentlyUsedList("");
    EXPECT_EQ(content(), "no file");
    recent.AddFileToMostRecentlyUsedList("A");
    EXPECT_EQ(content(), lines({"A", ""}));
    EXPECT_TRUE(host_.reports.all.at(0).error.isQuiet());
    EXPECT_EQ(takeErrors(), (Numbers{53, 53, 53})) << "logged at each look";
    EXPECT_EQ(recent.TotalFilesInList(), 2);
    recent.PurgeMRUList();
    EXPECT_EQ(recent.TotalFilesInList(), 0);
    EXPECT_EQ(recent.ClassDebugID() + 1, MostRecentlyUsed().ClassDebugID());
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
    const std::string damaged = lines({"a"}) + "\"damaged";
    files().put(path_, damaged);
    recent.AddFileToMostRecentlyUsedList("c");
    EXPECT_EQ(content(), lines({"c", "a", ""})) << "as far as it can be read";
    EXPECT_EQ(files().content(path_ + ".bak"), damaged);
    EXPECT_EQ(takeErrors(), (Numbers{62, 62}));
}

TEST_F(MostRecentlyUsedTest, GivesEntriesOneByOneAndByNumber) {
    files().put(path_, lines({"a", "b"}));
    MostRecentlyUsed recent;
    EXPECT_EQ(recent.GetNextFile(), "a") << "nothing was asked for before";
    EXPECT_EQ(recent.GetFirstFileName(), "a");
    for (const char* next : {"b", "", ""})
        EXPECT_EQ(recent.GetNextFile(), next);
    for (const char* name : {"c", "d", "e"})
        recent.AddFileToMostRecentlyUsedList(name);
    EXPECT_EQ(recent.GetNextFile(), "b") << "it counted on, to the fifth";
    EXPECT_EQ(recent.GetFileName(7), "");
    EXPECT_EQ(recent.GetFileName(0), "");
    EXPECT_EQ(takeErrors(), Numbers{9});
}

TEST_F(MostRecentlyUsedTest, IsReadFromWhereTheSettingPointsAndWrittenBesideTheLibrary) {
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "list");
    files().put(elsewhere, lines({"b", ""}));
    WriteSetting("VistrelLite", "Settings", "MRU", elsewhere);
    MostRecentlyUsed recent;
    recent.AddFileToMostRecentlyUsedList("c");
    EXPECT_EQ(ReadSetting("VistrelLite", "Settings", "MRU", "none"), path_);
    EXPECT_EQ(content(), lines({"c", "b", ""}));
    WriteSetting("VistrelLite", "Settings", "MRU", JoinPath(host_.inLibrary("gone"), "list"));
    recent.AddFileToMostRecentlyUsedList("d");
    EXPECT_EQ(content(), lines({"d", ""})) << "no folder, no names to lose";
    EXPECT_EQ(takeErrors(), (Numbers{76, 76}));
}

} // namespace
} // namespace qrtVistrelClasses4
