// What only a POSIX system has, as links and rights.
#include "Machines.h"
#include "platform/ReplacementFile.h"
#include "platform/posix/PosixCalendar.h"
#include "platform/posix/PosixFolders.h"
#include "platform/posix/PosixRegistryStore.h"

#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

using PosixPlatformTest = OnEveryMachine<SystemMachine>;

unsigned modeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
}

TEST_F(PosixPlatformTest, SavingThroughALinkKeepsTheLink) {
    const std::string target = machine.file("target");
    const std::string link = machine.file("link");
    const std::string linkToLink = machine.file("second");
    ASSERT_EQ(::symlink(target.c_str(), link.c_str()), 0);
    ASSERT_EQ(::symlink("link", linkToLink.c_str()), 0);
    for (const char* text : {"the file is made", "the file is replaced"}) {
        ReplacementFile file(files(), linkToLink);
        ASSERT_EQ(file.write(text), SystemError::none);
        ASSERT_EQ(file.commit(), SystemError::none);
        EXPECT_TRUE(std::filesystem::is_symlink(link) && std::filesystem::is_symlink(linkToLink));
        EXPECT_EQ(textOf(target), text);
    }
    const std::string loop = machine.file("loop");
    ASSERT_EQ(::symlink("loop", loop.c_str()), 0);
    EXPECT_EQ(files().resolveLinks(loop), loop) << "a link to itself leads nowhere";
}

TEST_F(PosixPlatformTest, CopyingThroughLinksToTheFileItselfLeavesItAlone) {
    const std::string target = machine.file("target");
    put(target, "content");
    for (const bool isHard : {false, true}) {
        const std::string link = machine.file(isHard ? "hard" : "soft");
        ASSERT_EQ(isHard ? ::link(target.c_str(), link.c_str()) : ::symlink(target.c_str(), link.c_str()), 0);
        EXPECT_EQ(files().copy(link, target), SystemError::none);
        EXPECT_EQ(textOf(target), "content");
    }
}

TEST_F(PosixPlatformTest, SavingKeepsTheRightsOfAFileAndGivesANewOneTheUsualOnes) {
    const mode_t mask = ::umask(027);
    const std::string path = machine.file("a");
    for (const unsigned mode : {0640u, 0600u, 0755u, 0666u}) {
        ReplacementFile file(files(), path);
        ASSERT_EQ(file.commit(), SystemError::none);
        EXPECT_EQ(modeOf(path), mode);
        const unsigned next = mode == 0640 ? 0600 : mode == 0600 ? 0755 : 0666;
        ASSERT_EQ(::chmod(path.c_str(), next), 0);
    }
    ::umask(mask);
}

TEST_F(PosixPlatformTest, NeitherReadsNorReplacesWhatIsNoPlainFile) {
    const std::string pipe = machine.file("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_NE(textOf("/proc/self/status").find("Name:"), std::string::npos) << "a file that hides its size";
    for (const std::string& path : {pipe, std::string("/dev/null")}) {
        EXPECT_EQ(files().kindOf(path), EntryKind::other);
        EXPECT_EQ(files().read(path).error, SystemError::accessDenied);
        EXPECT_EQ(ReplacementFile(files(), path).error(), SystemError::accessDenied);
    }
}

TEST_F(PosixPlatformTest, ReadsAFileThatHidesItsSize) {
    EXPECT_NE(textOf("/proc/self/status").find("Name:"), std::string::npos);
}

TEST_F(PosixPlatformTest, ARegistryThatCouldNotBeReadIsReadAgain) {
    const std::string path = machine.file("registry");
    const RegistryKey key{RegistryHive::localMachine, "Software\\test"};
    ASSERT_EQ(platform().registry().writeString(key, "name", "value"), SystemError::none);
    MemoryFileSystem failing; // its files lie where the system has them, too
    failing.put(path, textOf(path));
    failing.observer = [](const FileOperation&) { return SystemError::deviceFailure; };
    PosixRegistryStore store(failing, path);
    EXPECT_FALSE(store.readString(key, "name"));
    failing.observer = nullptr;
    EXPECT_EQ(store.readString(key, "name").value, "value");
}

TEST_F(PosixPlatformTest, SeesWhatAnotherPlatformObjectWroteToTheRegistry) {
    const auto other = makePlatform({machine.file("")});
    const RegistryKey key{RegistryHive::localMachine, "Software\\test"};
    EXPECT_EQ(platform().registry().readString(key, "v").error, SystemError::fileNotFound);
    EXPECT_EQ(machine.fileCount(), 0u) << "reading makes nothing";
    for (const char* value : {"a", "b", "c", "d"}) {
        ASSERT_EQ(other->registry().writeString(key, "v", value), SystemError::none);
        EXPECT_EQ(platform().registry().readString(key, "v").value, value);
    }
    const std::string path = machine.file("registry");
    std::filesystem::remove(path);
    EXPECT_EQ(platform().registry().readString(key, "v").error, SystemError::fileNotFound);
    ASSERT_EQ(files().createFolder(path), SystemError::none);
    EXPECT_EQ(platform().registry().writeString(key, "v", "x"), SystemError::accessDenied) << "never unread";
    EXPECT_EQ(files().kindOf(path), EntryKind::folder);
}

TEST_F(PosixPlatformTest, TheFirstSettingMakesTheFoldersAboveTheStore) {
    const std::string home = machine.file("a/b/c");
    const auto fresh = makePlatform({home});
    EXPECT_EQ(machine.fileCount(), 0u);
    const auto profile = fresh->openProfile(fresh->systemProfilePath());
    profile->write("S", "k", "v");
    EXPECT_EQ(profile->commit(), SystemError::none);
    EXPECT_EQ(textOf(JoinPath(home, "win.ini")), "[S]\r\nk=v\r\n");
    const auto other = makePlatform({machine.file("d/e")});
    EXPECT_EQ(other->registry().createKey({RegistryHive::users, "a"}), SystemError::none);
    EXPECT_EQ(textOf(machine.file("d/e/registry")), "[HKEY_USERS\\a]\n");
}

TEST_F(PosixPlatformTest, OneHomeFolderStandsForAllPlaces) {
    const std::string home = std::filesystem::path(machine.file("a")).parent_path().string();
    const auto slashed = makePlatform({home + "/"});
    EXPECT_EQ(slashed->libraryFolder(), home);
    EXPECT_EQ(slashed->specialFolder(kDocumentsFolder), home);
    EXPECT_EQ(slashed->specialFolder(-1), std::nullopt);
    EXPECT_EQ(slashed->systemProfilePath(), JoinPath(home, "win.ini"));
}

TEST(PosixFolders, ReadTheDocumentsFolderFromTheDesktopsFile) {
    const struct {
        const char *why, *text, *expected;
    } cases[] = {
        {"below the home folder", "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", "/home/me/Dokumente"},
        {"the home folder itself", "XDG_DOCUMENTS_DIR=\"$HOME\"\n", "/home/me"},
        {"elsewhere", "XDG_DOCUMENTS_DIR=\"/data/docs\"", "/data/docs"},
        {"escaped quote", "XDG_DOCUMENTS_DIR=\"/a\\\"b\"", "/a\"b"},
        {"not the first line", "# note\nXDG_MUSIC_DIR=\"/m\"\nXDG_DOCUMENTS_DIR=\"/d\"\n", "/d"},
        {"relative", "XDG_DOCUMENTS_DIR=\"docs\"\n", ""},
        {"commented out", "#XDG_DOCUMENTS_DIR=\"/d\"\n", ""},
        {"cut short", "XDG_DOCUMENTS_DIR=", ""},
        {"empty", "", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(userDirectory(c.text, "XDG_DOCUMENTS_DIR", "/home/me"), c.expected) << c.why;
}

TEST(PosixFolders, TheLibraryLiesWhereTheTestProgramDoes) {
    EXPECT_EQ(makePlatform()->libraryFolder(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

TEST(PosixCalendar, IsEnglishUnlessTheLocaleHasNamesOfItsOwn) {
    const auto fields = [](const CalendarNames& names) {
        return std::tuple(names.months, names.shortMonths, names.weekdays, names.morning, names.afternoon,
                          names.dateSeparator, names.timeSeparator);
    };
    for (const char* name : {"C", "POSIX", "no such locale"})
        EXPECT_EQ(fields(PosixCalendarNames(name)), fields(EnglishCalendarNames())) << name;
    const CalendarNames german = PosixCalendarNames("de_DE.utf8"); // not on every machine
    EXPECT_TRUE(german.months[2] == "March" || german.months[2] == "M\344rz") << german.months[2];
}

} // namespace
} // namespace qrtVistrelClasses4
