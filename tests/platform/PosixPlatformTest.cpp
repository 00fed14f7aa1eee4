// What only a POSIX system has, as links and rights.
#include "Machines.h"
#include "platform/KeptCopies.h"
#include "platform/Path.h"
#include "platform/ReplacementFile.h"
#include "platform/posix/PosixCalendar.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixFolders.h"
#include "platform/posix/PosixSystem.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

const RegistryKey kKey{RegistryHive::users, "a"};

using PosixPlatformTest = OnEveryMachine<SystemMachine>;

TEST_F(PosixPlatformTest, SavesThroughLinksAndCopiesNoFileOntoItselfThroughThem) {
    std::filesystem::create_symlink(file("target"), file("link"));
    std::filesystem::create_symlink("link", file("second"));
    for (const char* text : {"the file is made", "the file is replaced"}) {
        ReplacementFile replacement(files(), file("second"));
        (void)replacement.write(text);
        EXPECT_EQ(replacement.commit(), SystemError::none);
        EXPECT_EQ(textOf(file("target")), text);
    }
    EXPECT_TRUE(std::filesystem::is_symlink(file("link")) && std::filesystem::is_symlink(file("second")));
    std::filesystem::create_hard_link(file("target"), file("hard"));
    for (const char* name : {"second", "hard"})
        EXPECT_EQ(files().copy(file(name), file("target")), SystemError::none);
    EXPECT_EQ(std::filesystem::hard_link_count(file("target")), 2u);
    std::filesystem::create_symlink("loop", file("loop"));
    EXPECT_EQ(files().resolveLinks(file("loop")), file("loop")) << "a link to itself leads nowhere";
}

TEST_F(PosixPlatformTest, AProgramThatIsEndedInTheMiddleOfASaveLeavesNoTemporaryFile) {
    const auto endedBy = [&](int signal) {
        (void)StartProgram(0, nullptr);
        ReplacementFile first(files(), file("first")), second(files(), file("second"));
        (void)first.commit();
        (void)second.write("half of it");
        (void)std::raise(signal);
    };
    for (const int signal : kEndingSignals) {
        EXPECT_EXIT(endedBy(signal), testing::KilledBySignal(signal), "");
        EXPECT_THAT(files().namesIn(file("")), testing::UnorderedElementsAre(".", "..", "first"));
    }
    EXPECT_EXIT((std::signal(SIGHUP, SIG_IGN), endedBy(SIGHUP), std::exit(7)), testing::ExitedWithCode(7), "")
        << "as a program that is to go on without its terminal";
}

TEST_F(PosixPlatformTest, SavingKeepsTheRightsOfAFileAndGivesANewOneTheUsualOnes) {
    using std::filesystem::perms;
    const mode_t mask = ::umask(027);
    for (const perms rights : {perms{0640}, perms{0600}, perms{0755}}) {
        if (std::filesystem::exists(file("a")))
            std::filesystem::permissions(file("a"), rights);
        EXPECT_EQ(ReplacementFile(files(), file("a")).commit(), SystemError::none);
        EXPECT_EQ(std::filesystem::status(file("a")).permissions(), rights);
    }
    ::umask(mask);
    constexpr unsigned other = 65534;
    for (const auto& [owner, group] : {std::pair{other, ::getgid()}, std::pair{::getuid(), other}}) {
        struct stat status {};
        if (::chown(file("a").c_str(), owner, group) != 0) // which takes root
            break;
        EXPECT_EQ(ReplacementFile(files(), file("a")).commit(), SystemError::none);
        ASSERT_EQ(::stat(file("a").c_str(), &status), 0);
        EXPECT_EQ(std::pair(status.st_uid, status.st_gid), std::pair(owner, group));
    }
}

TEST_F(PosixPlatformTest, UsesNothingButPlainFilesAndAppendsToNoLink) {
    EXPECT_NE(textOf("/proc/self/status").find("Name:"), std::string::npos) << "a file that hides its size";
    ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
    for (const auto& [path, kind] :
         {std::pair(file("pipe"), EntryKind::pipe), std::pair(std::string("/dev/null"), EntryKind::other)}) {
        EXPECT_EQ(files().kindOf(path), kind);
        EXPECT_EQ(files().read(path).error(), SystemError::accessDenied);
        EXPECT_EQ(ReplacementFile(files(), path).error(), SystemError::accessDenied);
        for (const OpenMode mode : {OpenMode::replace, OpenMode::append})
            EXPECT_EQ(files().open(file("pipe"), mode).error(), SystemError::accessDenied);
    }
    std::filesystem::create_symlink(file("target"), file("link"));
    EXPECT_EQ(files().open(file("link"), OpenMode::append).error(), SystemError::accessDenied);
    EXPECT_EQ(files().kindOf(file("link")), EntryKind::missing);
    EXPECT_TRUE(files().hasEntry(file("link"))) << "though it leads nowhere";
}

TEST_F(PosixPlatformTest, TakesTheFileSystemThatLinksLeadToForTheDrive) {
    std::filesystem::create_symlink("/proc/self", file("link"));
    for (const auto& [path, sameDrive] : {std::pair{file("link/status"), std::string("/proc")},
                                          {file("none/none/a.bmp"), file("")},
                                          {"Q:\\none/a.bmp", "."}})
        EXPECT_EQ(files().driveOf(path).number, files().driveOf(sameDrive).number) << path;
    EXPECT_NE(files().driveOf(file("link")).number, files().driveOf(file("none")).number);
}

TEST_F(PosixPlatformTest, KeepsFilesBesideAndNotWhereALinkLeads) {
    put(file("a"), "new");
    for (const char* target : {"(missing)", "precious"}) {
        for (const char* link : {"a.bak", "a.bak2"}) {
            std::filesystem::remove(file(link));
            std::filesystem::create_symlink(file("target"), file(link));
        }
        EXPECT_EQ(files().copy(file("a"), MakePlaceForBackup(files(), file("a"))), SystemError::none);
        const auto kept = KeepAside(files(), file("a"), IfNotCopied::fail, 2);
        EXPECT_EQ(textOf(kept.value()), "new");
        for (const std::string& copy : {file("a.bak"), kept.value()})
            EXPECT_FALSE(std::filesystem::is_symlink(copy)) << copy;
        EXPECT_EQ(textOf(file("target")), target);
        put(file("target"), "precious");
    }
}

TEST_F(PosixPlatformTest, WaitsForTheLockOfAnotherButNotForEver) {
    const Descriptor held = openDescriptor(file(""), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(held.number(), LOCK_EX), 0);
    EXPECT_EQ(platform().registry().writeString(kKey, "name", "value"), SystemError::none);
}

TEST_F(PosixPlatformTest, ReadsSettingsAgainAfterAnyChangeOfTheirFiles) {
    const auto inPlace = [&](const std::string& path, const std::string& text) { put(path, text); };
    const auto byAnotherFile = [&](const std::string& path, const std::string& text) {
        put(path + "2", text);
        std::filesystem::last_write_time(path + "2", std::filesystem::last_write_time(path));
        std::filesystem::rename(path + "2", path);
    };
    const auto withItsTimePutBack = [&](const std::string& path, const std::string& text) {
        const auto time = std::filesystem::last_write_time(path);
        put(path, text);
        std::filesystem::last_write_time(path, time);
    };
    const auto expectBoth = [&](const std::string& value) {
        EXPECT_EQ(platform().openProfile(file("own.ini"))->read("S", "k", "", 9), value);
        EXPECT_EQ(platform().registry().readString(kKey, "v").valueOr(""), value);
    };
    const auto change = [&](const auto& way, const std::string& value) {
        way(file("own.ini"), "[S]\r\nk=" + value);
        way(file("registry"), "[HKEY_USERS\\a]\n\"v\"=\"" + value + "\"\n");
        expectBoth(value);
    };
    expectBoth("");
    EXPECT_EQ(machine.fileCount(), 0) << "reading makes nothing";
    for (const char letter : std::string_view("abcdefghijklmnopqrstuvwxyz"))
        change(inPlace, {letter}); // some of it within one step of the file system's clock
    ::usleep(50'000);
    expectBoth("z"); // from now on it is kept
    change(byAnotherFile, "A");
    ::usleep(50'000);
    expectBoth("A");
    change(withItsTimePutBack, "B");
    std::filesystem::remove(file("registry"));
    EXPECT_EQ(platform().registry().readString(kKey, "v").error(), SystemError::fileNotFound);
    ASSERT_EQ(files().createFolder(file("registry")), SystemError::none);
    EXPECT_EQ(platform().registry().writeString(kKey, "v", "x"), SystemError::accessDenied) << "never unread";
}

TEST(PosixSystem, TrustsTheTimeOfAFileOnceTheClockHasLeftIt) {
    // clang-format off
    const std::tuple<const char*, timespec, bool> cases[] = {
        {"now", {100, 5'000'000}, false}, {"the tick before", {99, 995'000'000}, false},
        {"long before", {99, 984'999'999}, true}, {"whole seconds", {99, 0}, false},
        {"even ones", {98, 0}, false}, {"those before", {97, 0}, true}};
    // clang-format on
    for (const auto& [why, time, isTrusted] : cases) {
        struct stat status {};
        status.st_mtim = status.st_ctim = time;
        EXPECT_EQ(isOlderThanClockStep(status, {100, 5'000'000}), isTrusted) << why;
    }
}

TEST(LogFolder, IsInTheStateFolderOfTheUserUnlessThereIsAHome) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {nullptr, nullptr, "/me/.local/state/qrtVistrelClasses4"},
        {"/state", nullptr, "/state/qrtVistrelClasses4"},
        {"state", nullptr, "/me/.local/state/qrtVistrelClasses4"},
        {"/state", "/home", "(where other files are)"}};
    const auto set = [](const char* name, const char* value) {
        (void)(value ? ::setenv(name, value, 1) : ::unsetenv(name));
    };
    const auto in = [&](const char* state, const char* home) {
        set("HOME", "/me"), set("XDG_STATE_HOME", state), set("VISTREL_HOME", home);
        return makePlatform()->logFolder().value_or("(where other files are)");
    };
    for (const auto& [state, home, expected] : cases) // each in a process of its own
        EXPECT_EXIT(std::exit(in(state, home) == expected ? 0 : 1), testing::ExitedWithCode(0), "")
            << expected;
}

TEST(SharedFolder, IsBesideTheFolderOfTheProgramOrLibrary) {
    for (const char* folder : {"/usr/bin", "/usr/lib", "/usr/lib/x86_64-linux-gnu"})
        EXPECT_EQ(SharedFolder(folder), "/usr/share/vistrel") << folder;
    EXPECT_EQ(SharedFolder("/opt/lib/bin"), "/opt/lib/share/vistrel");
}

TEST_F(PosixPlatformTest, ReadsFontsBesideTheProgramAndMakesAHomeForItsUserOnly) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EQ(makePlatform()->otherFolders(FileUse::onlyRead),
              (std::vector{program, FolderOf(program) + "/share/vistrel"}));
    EXPECT_EQ(makePlatform({file("a/b")})->registry().createKey(kKey), SystemError::none);
    EXPECT_EQ(std::filesystem::status(file("a/b")).permissions(), std::filesystem::perms::owner_all);
}

TEST(PosixCalendar, IsAllEnglishIfTheCodePageLacksACharacter) {
    const struct {
        const char *why, *encoding, *march, *afternoon, *shown;
    } cases[] = {{"German", "UTF-8", "M\303\244rz", "", "M\344rz Freitag "},
                 {"in Latin-2", "ISO-8859-2", "M\344rz", "pm", "M\344rz Freitag pm"},
                 {"a letter that is lacking", "UTF-8", "B\305\231ezen", "", "March Friday PM"},
                 {"lacking in the last text", "UTF-8", "Mart", "\305\231", "March Friday PM"},
                 {"cut short", "UTF-8", "M\303", "", "March Friday PM"},
                 {"nobody knows it", "none", "M\344rz", "", "March Friday PM"}};
    for (const auto& row : cases) {
        CalendarNames names = EnglishCalendarNames();
        names.months[2] = row.march, names.weekdays[5] = "Freitag", names.afternoon = row.afternoon;
        names = AnsiCalendarNames(names, row.encoding);
        EXPECT_EQ(names.months[2] + " " + names.weekdays[5] + " " + names.afternoon, row.shown) << row.why;
    }
}

TEST(PosixFolders, ReadTheDocumentsFolderFromTheDesktopsFile) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"below the home folder", "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", "/home/me/Dokumente"},
        {"elsewhere, escaped quote", "XDG_DOCUMENTS_DIR=\"/a\\\"b\"", "/a\"b"},
        {"not the first line", "#XDG_DOCUMENTS_DIR=\"/c\"\nXDG_DOCUMENTS_DIR=\"/d\"\n", "/d"},
        {"relative", "XDG_DOCUMENTS_DIR=\"docs\"\n", ""},
        {"cut short", "XDG_DOCUMENTS_DIR=", ""}};
    for (const auto& [why, text, expected] : cases)
        EXPECT_EQ(userDirectory(text, "XDG_DOCUMENTS_DIR", "/home/me").value_or(""), expected) << why;
}

} // namespace
} // namespace qrtVistrelClasses4
