#include "Machines.h"

#include <ctime>

namespace qrtVistrelClasses4 {
namespace {

template <class Machine>
class PlatformTest : public OnEveryMachine<Machine> {};
TYPED_TEST_SUITE(PlatformTest, Machines, MachineName);

TYPED_TEST(PlatformTest, KnowsItsFoldersAndRefusesUnknownNumbers) {
    const std::optional<std::string> documents = this->platform().specialFolder(kDocumentsFolder);
    ASSERT_TRUE(documents);
    EXPECT_TRUE(IsRootedPath(*documents)) << *documents;
    for (const int unknown : {-1, 9999})
        EXPECT_EQ(this->platform().specialFolder(unknown), std::nullopt) << unknown;
    const std::string library = this->platform().libraryFolder();
    EXPECT_TRUE(IsRootedPath(library) && !IsPathSeparator(library.back())) << library;
    EXPECT_EQ(this->files().kindOf(library), EntryKind::folder);
}

TEST(SystemClock, TellsTheLocalTime) {
    const auto machine = makePlatform();
    const std::time_t before = std::time(nullptr);
    const LocalTime now = machine->localTime();
    std::tm parts{};
    parts.tm_year = now.year - 1900;
    parts.tm_mon = now.month - 1;
    parts.tm_mday = now.day;
    parts.tm_hour = now.hour;
    parts.tm_min = now.minute;
    parts.tm_sec = now.second;
    parts.tm_isdst = -1;
    const std::time_t told = std::mktime(&parts);
    EXPECT_GE(told, before);
    EXPECT_LE(told, std::time(nullptr));
    EXPECT_EQ(now.weekday, parts.tm_wday);
}

#ifdef _WIN32
TEST(SystemDrives, TheFirstLetterNamesTheDrive) {
    const auto machine = makePlatform();
    const struct {
        const char *why, *path;
        bool expected;
    } cases[] = {
        {"system disk", "C:\\none\\a.bmp", true},
        {"a relative name that starts with its letter", "c.bmp", true},
        {"no such drive", "Q:\\a.bmp", false},
        {"network name", "\\\\host\\share\\a.bmp", false},
        {"nothing", "", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(machine->files().isFixedDrive(c.path), c.expected) << c.why;
}
#endif

} // namespace
} // namespace qrtVistrelClasses4
