#include "platform/Platform.h"

#include "platform/FixedDrives.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"

#include <gtest/gtest.h>

#include <ctime>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

constexpr bool kOnWindows = kPathSeparator == '\\';

TEST(Path, IsSplitBehindTheLastSeparatorOfAnyMachineAndJoinedByThatOfThisOne) {
    const std::tuple<std::string, std::string, std::string> cases[] = {{"C:\\a\\", "b.bmp", "C:\\a\\/b.bmp"},
                                                                       {"/a/", "b", "/a/b"},
                                                                       {"a\\", "", "a\\/"},
                                                                       {"", "b.bmp", "b.bmp"}};
    for (const auto& [folder, name, joined] : cases) {
        const std::string path = folder + name;
        EXPECT_EQ(std::string(SplitPath(path).folder) + "|" + std::string(SplitPath(path).name),
                  folder + "|" + name);
        EXPECT_EQ(JoinPath(folder, name), kOnWindows ? path : joined);
    }
    EXPECT_EQ(JoinPath("folder", "name"), kOnWindows ? "folder\\name" : "folder/name");
    EXPECT_EQ(JoinPath("C:", "name"), kOnWindows ? "C:name" : "C:/name");
    EXPECT_EQ(SplitPath("C:name").name, kOnWindows ? "name" : "C:name");
}

TEST(Path, KnowsARootedPath) {
    for (const char* path : {"C:\\a", "C:a", "/a", "", "a\\b", "\\\\host\\share"})
        EXPECT_EQ(IsRootedPath(path), path[0] == (kOnWindows ? 'C' : '/')) << path;
}

TEST(LetterCase, IsThatOfWindows1252) {
    EXPECT_EQ(AnsiUpperCase("az{ \x9a\x9c\x9e \xe0\xf6\xf7\xfe\xff \xdf"),
              "AZ{ \x8a\x8c\x8e \xc0\xd6\xf7\xde\x9f \xdf");
}

TEST(SystemFolders, AreKnownAndUnknownNumbersRefused) {
    const auto machine = makePlatform();
    const std::string library = machine->libraryFolder();
    EXPECT_TRUE(IsRootedPath(library) && !IsPathSeparator(library.back())) << library;
    EXPECT_TRUE(IsRootedPath(machine->specialFolder(kDocumentsFolder).value()));
    for (const int unknown : {-1, 9999})
        EXPECT_EQ(machine->specialFolder(unknown), std::nullopt) << unknown;
}

TEST(SystemClock, GivesTheLocalTime) {
    const std::time_t now = std::time(nullptr);
    const LocalTime time = makePlatform()->localTime();
    std::tm parts = *std::localtime(&now);
    EXPECT_EQ(time.weekday, parts.tm_wday);
    parts.tm_year = time.year - 1900, parts.tm_mon = time.month - 1, parts.tm_mday = time.day;
    parts.tm_hour = time.hour, parts.tm_min = time.minute, parts.tm_sec = time.second;
    EXPECT_NEAR(static_cast<double>(std::mktime(&parts)), static_cast<double>(now), 2);
}

#ifdef _WIN32
TEST(SystemDrives, TheFirstLetterNamesTheDrive) {
    const auto machine = makePlatform();
    FixedDrives drives(machine->files());
    for (const char* path : {"C:\\none\\a.bmp", "c.bmp", "Q:\\a.bmp", "\\\\host\\share\\a.bmp", ""})
        EXPECT_EQ(drives.hold(path), path[0] == 'C' || path[0] == 'c') << path;
}
#endif

} // namespace
} // namespace qrtVistrelClasses4
