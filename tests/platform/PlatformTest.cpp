#include "Machines.h"

#include <ctime>

namespace qrtVistrelClasses4 {
namespace {

template <class Machine>
class PlatformTest : public OnEveryMachine<Machine> {};
TYPED_TEST_SUITE(PlatformTest, Machines, MachineName);

TYPED_TEST(PlatformTest, KnowsTheDocumentsFolderAndRefusesUnknownNumbers) {
    const std::optional<std::string> documents = this->platform().specialFolder(kDocumentsFolder);
    ASSERT_TRUE(documents);
    EXPECT_TRUE(IsRootedPath(*documents)) << *documents;
    for (const int unknown : {-1, 9999})
        EXPECT_EQ(this->platform().specialFolder(unknown), std::nullopt) << unknown;
}

TYPED_TEST(PlatformTest, NamesTheLibraryFolderWithoutASeparatorAtItsEnd) {
    const std::string folder = this->platform().libraryFolder();
    EXPECT_TRUE(IsRootedPath(folder)) << folder;
    EXPECT_FALSE(IsPathSeparator(folder.back())) << folder;
    EXPECT_EQ(this->files().kindOf(folder), EntryKind::folder);
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
    struct Case {
        const char* why;
        std::string path;
        bool expected;
    };
    const Case cases[] = {
        {"system disk", "C:\\none\\a.bmp", true},
        {"a relative name that starts with its letter", "c.bmp", true},
        {"no such drive", "Q:\\a.bmp", false},
        {"network name", "\\\\host\\share\\a.bmp", false},
        {"nothing", "", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(machine->files().isFixedDrive(c.path), c.expected) << c.why;
}
#endif

TEST(MemoryMachineTest, AnswersQuestionsAsToldAndElseWithNo) {
    MemoryPlatform machine;
    const Message question{"Really?", "Title", MessageIcon::question, MessageButtons::yesNo};
    machine.messageBoxes().answers = {MessageAnswer::yes};
    const ScopedPlatform scope(machine);
    EXPECT_EQ(showMessage(question), MessageAnswer::yes);
    EXPECT_EQ(showMessage(question), MessageAnswer::no);
    EXPECT_EQ(showMessage({"Done.", "", MessageIcon::none, MessageButtons::ok}), MessageAnswer::ok);
    EXPECT_EQ(machine.messageBoxes().shown.size(), 3u);
}

TEST(MemoryMachineTest, UnderstandsBothSeparators) {
    MemoryPlatform machine;
    const std::string folder = "D:\\fonts";
    machine.files().put(folder + "\\small.cff", "font");
    EXPECT_EQ(machine.files().content(JoinPath(folder + kPathSeparator, "small.cff")), "font");
}

TEST(MemoryMachineTest, HasDrivesThatAreNotFixed) {
    MemoryPlatform machine;
    machine.files().addLooseDrive(JoinPath(machine.library, "stick"));
    EXPECT_TRUE(machine.files().isFixedDrive(JoinPath(machine.library, "a.bmp")));
    EXPECT_FALSE(machine.files().isFixedDrive(JoinPath(JoinPath(machine.library, "stick"), "a.bmp")));
}

} // namespace
} // namespace qrtVistrelClasses4
