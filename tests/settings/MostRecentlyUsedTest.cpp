#include <qrtVistrelClasses4/MostRecentlyUsed.h>

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

TEST_F(MostRecentlyUsedTest, ChangesTheFileAtOnce) {
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
    files().put(path_, lines({"a"}) + '"');
    recent.AddFileToMostRecentlyUsedList("c");
    EXPECT_EQ(content(), lines({"c", "a", ""})) << "as far as it can be read";
    EXPECT_EQ(takeErrors(), (Numbers{58, 62, 58, 62})) << "read before it is removed, and to remove it";
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
    EXPECT_EQ(recent.GetFileName(7) + recent.GetFileName(0), "");
    EXPECT_EQ(takeErrors(), Numbers{9});
}

TEST_F(MostRecentlyUsedTest, IsReadFromWhereTheSettingPointsAndWrittenBesideTheLibrary) {
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "list");
    files().put(elsewhere, lines({"b", ""}));
    WriteSetting("VistrelLite", "Settings", "MRU", elsewhere);
    RecentFilesOutcome loaded = LoadRecentFiles(RecentFilesPath().value());
    EXPECT_TRUE(loaded.mayBeReplaced && !loaded.error);
    EXPECT_EQ(SaveRecentFiles(loaded.files), std::nullopt);
    EXPECT_EQ(RecentFilesPath(), path_);
    EXPECT_EQ(content(), lines({"b", ""}));
    const std::string gone = JoinPath(host_.inLibrary("gone"), "list");
    EXPECT_TRUE(LoadRecentFiles(gone).mayBeReplaced) << "no folder, no names to lose";
    host_.failReads(1, 1);
    EXPECT_FALSE(LoadRecentFiles(path_).mayBeReplaced);
}

} // namespace
} // namespace qrtVistrelClasses4
