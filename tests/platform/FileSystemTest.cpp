#include "Machines.h"
#include "platform/ReplacementFile.h"
#include "platform/memory/MemoryPlatform.h"

#include <chrono>
#include <future>
#include <thread>

namespace qrtVistrelClasses4 {
namespace {

template <class Machine>
class FileSystemTest : public OnEveryMachine<Machine> {};
TYPED_TEST_SUITE(FileSystemTest, Machines, MachineName);

TYPED_TEST(FileSystemTest, GivesBackEveryByteOfAFile) {
    const std::string path = this->machine.file("a.txt");
    std::string large(300'000, '\0');
    for (std::size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 7);
    for (const std::string& content : {std::string(), std::string("one\r\ntwo\n\x1a\0three", 16), large}) {
        this->put(path, content);
        EXPECT_EQ(this->textOf(path), content);
        EXPECT_EQ(this->files().sizeOf(path).value, content.size());
    }
    for (int time = 0; time < 2; ++time)
        this->put(this->machine.file("log.txt"), "line\n", OpenMode::append);
    EXPECT_EQ(this->textOf(this->machine.file("log.txt")), "line\nline\n");
}

TYPED_TEST(FileSystemTest, ReadsPiecesFromAnywhereInAFile) {
    const std::string path = this->machine.file("a.txt");
    this->put(path, "0123456789");
    const auto file = this->files().openToRead(path);
    ASSERT_EQ(file.error, SystemError::none);
    EXPECT_EQ(file.value->size(), 10u);
    const struct {
        const char* why;
        std::uint64_t offset;
        std::size_t size;
        std::string piece;
    } cases[] = {
        {"from the start", 0, 4, "0123"}, {"over the end", 8, 4, "89"},         {"back again", 3, 1, "3"},
        {"at the end", 10, 4, ""},        {"far behind it", 1ULL << 40, 4, ""}, {"nothing wanted", 5, 0, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        std::string piece(c.size, '?');
        const auto count = file.value->readAt(c.offset, piece);
        ASSERT_EQ(count.error, SystemError::none);
        EXPECT_EQ(piece.substr(0, count.value), c.piece);
    }
}

TYPED_TEST(FileSystemTest, TellsAMissingFileAMissingFolderAndAFolderApart) {
    FileSystem& files = this->files();
    const std::string folder = this->machine.file("folder");
    ASSERT_EQ(files.createFolder(folder), SystemError::none);
    const struct {
        std::string path;
        EntryKind kind;
        SystemError whenRead, whenMade;
    } cases[] = {
        {this->machine.file("none.txt"), EntryKind::missing, SystemError::fileNotFound, SystemError::none},
        {JoinPath(this->machine.file("none"), "a.txt"), EntryKind::missing, SystemError::folderNotFound,
         SystemError::folderNotFound},
        {folder, EntryKind::folder, SystemError::accessDenied, SystemError::accessDenied},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(files.kindOf(c.path), c.kind);
        EXPECT_EQ(files.read(c.path).error, c.whenRead);
        EXPECT_EQ(files.openToRead(c.path).error, c.whenRead);
        EXPECT_EQ(files.sizeOf(c.path).error, c.whenRead);
        EXPECT_EQ(files.mayWrite(c.path), c.whenMade);
        if (c.kind == EntryKind::missing) {
            EXPECT_EQ(files.remove(c.path), c.whenRead);
            EXPECT_EQ(files.copy(c.path, this->machine.file("copy")), c.whenRead);
            EXPECT_NE(files.moveOver(c.path, this->machine.file("copy")), SystemError::none);
            EXPECT_EQ(files.createBeside(c.path).error, c.whenMade);
        }
        EXPECT_EQ(files.open(c.path, OpenMode::replace).error, c.whenMade);
    }
    EXPECT_EQ(files.kindOf(WithTrailingSeparator(folder)), EntryKind::folder);
}

TYPED_TEST(FileSystemTest, MakesFoldersOneLevelAtATime) {
    const std::string outer = this->machine.file("outer");
    const std::string inner = JoinPath(outer, "inner");
    EXPECT_EQ(this->files().createFolder(inner), SystemError::folderNotFound);
    EXPECT_EQ(this->files().createFolder(outer), SystemError::none);
    EXPECT_EQ(this->files().createFolder(inner), SystemError::none);
    EXPECT_EQ(this->files().createFolder(inner), SystemError::alreadyExists);
}

TYPED_TEST(FileSystemTest, CopiesAndLeavesAFileCopiedOntoItselfAlone) {
    const std::string from = this->machine.file("from.bmp");
    const std::string to = this->machine.file("to.bmp");
    const std::string content(200'000, 'x');
    this->put(from, content);
    EXPECT_EQ(this->files().copy(from, to), SystemError::none);
    EXPECT_EQ(this->textOf(to), content);
    this->put(from, "shorter");
    for (const std::string& source : {from, to}) {
        EXPECT_EQ(this->files().copy(source, to), SystemError::none);
        EXPECT_EQ(this->textOf(to), "shorter");
    }
    EXPECT_EQ(this->machine.fileCount(), 2u);
}

TYPED_TEST(FileSystemTest, AFailedCopyKeepsTheOldTarget) {
    const std::string target = this->machine.file("target.bmp");
    this->put(target, "old");
    EXPECT_EQ(this->files().copy(this->machine.file("none.bmp"), target), SystemError::fileNotFound);
    EXPECT_EQ(this->textOf(target), "old");
    const std::string source = this->machine.file("source.bmp");
    this->put(source, "new");
    EXPECT_EQ(this->files().copy(source, JoinPath(this->machine.file("none"), "a.bmp")),
              SystemError::folderNotFound);
    this->machine.protect(target);
    EXPECT_EQ(this->files().copy(source, target), SystemError::accessDenied);
    EXPECT_EQ(this->textOf(target), "old");
    EXPECT_EQ(this->machine.fileCount(), 2u);
}

TYPED_TEST(FileSystemTest, FindsANameSpeltInAnotherCase) {
    FileSystem& files = this->files();
    const std::string path = this->machine.file("Fnt4x8.CFF");
    this->put(path, "font");
    EXPECT_EQ(files.existingName(path), path);
    EXPECT_EQ(files.existingName(this->machine.file("FNT4X8.cff")), path);
    const std::string missing = this->machine.file("FNT5X9.cff");
    EXPECT_EQ(files.existingName(missing), missing);
    const std::string inMissing = JoinPath(this->machine.file("none"), "a");
    EXPECT_EQ(files.existingName(inMissing), inMissing);
    EXPECT_EQ(files.existingName(""), "");
}

TYPED_TEST(FileSystemTest, PutsTheCurrentFolderInFrontOfARelativeName) {
    const std::string rooted = this->machine.file("a.txt");
    EXPECT_EQ(this->files().fullName(rooted), rooted);
    const std::string full = this->files().fullName("a.txt");
    EXPECT_TRUE(IsRootedPath(full)) << full;
    EXPECT_EQ(SplitPath(full).name, "a.txt");
}

template <class Machine>
class ReplacementFileTest : public OnEveryMachine<Machine> {
protected:
    SystemError replace(const std::string& path, std::string_view content) {
        ReplacementFile file(this->files(), path);
        (void)file.write(content);
        return file.commit();
    }
};
TYPED_TEST_SUITE(ReplacementFileTest, Machines, MachineName);

TYPED_TEST(ReplacementFileTest, KeepsTheOldFileUntilCommitted) {
    const std::string path = this->machine.file("a.playfile");
    for (const char* content : {"made", "replaced"})
        EXPECT_EQ(this->replace(path, content), SystemError::none);
    {
        ReplacementFile file(this->files(), path);
        EXPECT_EQ(file.write("given up"), SystemError::none);
        EXPECT_EQ(this->textOf(path), "replaced");
    }
    EXPECT_EQ(this->textOf(path), "replaced");
    EXPECT_EQ(this->machine.fileCount(), 1u);
}

TYPED_TEST(ReplacementFileTest, RefusesAReadOnlyFile) {
    const std::string path = this->machine.file("a.playfile");
    this->put(path, "old");
    this->machine.protect(path);
    ReplacementFile file(this->files(), path);
    EXPECT_EQ(file.error(), SystemError::accessDenied);
    EXPECT_EQ(file.write("new"), SystemError::accessDenied);
    EXPECT_EQ(file.commit(), SystemError::accessDenied);
    EXPECT_EQ(this->textOf(path), "old");
    EXPECT_EQ(this->machine.fileCount(), 1u);
}

TYPED_TEST(ReplacementFileTest, ReportsAMissingFolderAndAFolderInItsPlace) {
    EXPECT_EQ(this->replace(JoinPath(this->machine.file("none"), "a"), "x"), SystemError::folderNotFound);
    const std::string folder = this->machine.file("folder");
    ASSERT_EQ(this->files().createFolder(folder), SystemError::none);
    EXPECT_EQ(this->replace(folder, "x"), SystemError::accessDenied);
    EXPECT_EQ(this->files().kindOf(folder), EntryKind::folder);
}

TEST(ReplacementFileInMemory, LeavesTheOldFileOrTheNewOneWhicheverOperationFails) {
    for (int failing = 1;; ++failing) {
        SCOPED_TRACE(failing);
        MemoryPlatform machine;
        const std::string path = JoinPath(machine.library, "a");
        machine.files().put(path, "old");
        int count = 0;
        machine.files().observer = [&](const FileOperation&) {
            return ++count == failing ? SystemError::deviceFailure : SystemError::none;
        };
        ReplacementFile file(machine.files(), path);
        (void)file.write("new");
        const SystemError error = file.commit();
        EXPECT_EQ(machine.files().content(path), error == SystemError::none ? "new" : "old");
        if (count < failing)
            break;
    }
}

TEST(ReplacementFileInMemory, WritesInPlaceOnceCompleteWhereTheFolderTakesNoNewFile) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "a");
    machine.files().put(path, "old");
    machine.files().setReadOnly(machine.library);
    for (const bool commits : {false, true}) {
        ReplacementFile file(machine.files(), path);
        EXPECT_EQ(file.write("new"), SystemError::none);
        EXPECT_EQ(machine.files().content(path), "old");
        EXPECT_TRUE(!commits || file.commit() == SystemError::none);
    }
    EXPECT_EQ(machine.files().content(path), "new");
}

TEST(SystemFiles, AReaderWaitsForTheWriterOfAFile) {
    SystemMachine machine;
    FileSystem& files = machine.platform().files();
    const std::string path = machine.file("a");
    auto writer = files.open(path, OpenMode::replace);
    ASSERT_TRUE(writer);
    EXPECT_EQ(writer.value->write("one half"), SystemError::none);
    auto read = std::async(std::launch::async, [&] { return std::string(files.read(path).value.text()); });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(writer.value->write(", and the other"), SystemError::none);
    EXPECT_EQ(writer.value->close(), SystemError::none);
    EXPECT_EQ(read.get(), "one half, and the other");
}

} // namespace
} // namespace qrtVistrelClasses4
