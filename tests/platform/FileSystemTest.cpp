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
}

TYPED_TEST(FileSystemTest, ReadsPiecesFromAnywhereInAFile) {
    const std::string path = this->machine.file("a.txt");
    this->put(path, "0123456789");
    const auto file = this->files().openToRead(path);
    ASSERT_EQ(file.error, SystemError::none);
    EXPECT_EQ(file.value->size(), 10u);
    struct Case {
        const char* why;
        std::uint64_t offset;
        std::size_t size;
        std::string piece;
    };
    const Case cases[] = {
        {"from the start", 0, 4, "0123"}, {"over the end", 8, 4, "89"},         {"back again", 3, 1, "3"},
        {"at the end", 10, 4, ""},        {"far behind it", 1ULL << 40, 4, ""}, {"nothing wanted", 5, 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        std::string piece(c.size, '?');
        const auto count = file.value->readAt(c.offset, piece);
        ASSERT_EQ(count.error, SystemError::none);
        EXPECT_EQ(piece.substr(0, count.value), c.piece);
    }
}

TYPED_TEST(FileSystemTest, AppendsBehindTheLastByteAndMakesAMissingFile) {
    const std::string path = this->machine.file("log.txt");
    this->put(path, "first\n", OpenMode::append);
    this->put(path, "second\n", OpenMode::append);
    EXPECT_EQ(this->textOf(path), "first\nsecond\n");
}

TYPED_TEST(FileSystemTest, TellsAMissingFileFromAMissingFolder) {
    FileSystem& files = this->files();
    struct Case {
        const char* why;
        std::string path;
        SystemError whenRead, whenMade;
    };
    const Case cases[] = {
        {"folder is there", this->machine.file("none.txt"), SystemError::fileNotFound, SystemError::none},
        {"folder is missing", JoinPath(this->machine.file("none"), "a.txt"), SystemError::folderNotFound,
         SystemError::folderNotFound},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(files.kindOf(c.path), EntryKind::missing);
        EXPECT_EQ(files.read(c.path).error, c.whenRead);
        EXPECT_EQ(files.openToRead(c.path).error, c.whenRead);
        EXPECT_EQ(files.sizeOf(c.path).error, c.whenRead);
        EXPECT_EQ(files.remove(c.path), c.whenRead);
        EXPECT_EQ(files.copy(c.path, this->machine.file("copy")), c.whenRead);
        EXPECT_EQ(files.mayWrite(c.path), c.whenMade);
        EXPECT_EQ(files.createBeside(c.path).error, c.whenMade);
        EXPECT_EQ(files.open(c.path, OpenMode::replace).error, c.whenMade);
    }
}

TYPED_TEST(FileSystemTest, TreatsAFolderAsNoFile) {
    FileSystem& files = this->files();
    const std::string folder = this->machine.file("folder");
    ASSERT_EQ(files.createFolder(folder), SystemError::none);
    EXPECT_EQ(files.kindOf(folder), EntryKind::folder);
    EXPECT_EQ(files.kindOf(WithTrailingSeparator(folder)), EntryKind::folder);
    EXPECT_EQ(files.read(folder).error, SystemError::accessDenied);
    EXPECT_EQ(files.openToRead(folder).error, SystemError::accessDenied);
    EXPECT_EQ(files.sizeOf(folder).error, SystemError::accessDenied);
    EXPECT_EQ(files.mayWrite(folder), SystemError::accessDenied);
    EXPECT_EQ(files.open(folder, OpenMode::replace).error, SystemError::accessDenied);
}

TYPED_TEST(FileSystemTest, MakesFoldersOneLevelAtATime) {
    const std::string outer = this->machine.file("outer");
    const std::string inner = JoinPath(outer, "inner");
    EXPECT_EQ(this->files().createFolder(inner), SystemError::folderNotFound);
    EXPECT_EQ(this->files().createFolder(outer), SystemError::none);
    EXPECT_EQ(this->files().createFolder(inner), SystemError::none);
    EXPECT_EQ(this->files().createFolder(inner), SystemError::alreadyExists);
}

TYPED_TEST(FileSystemTest, MovesAFileOverAnother) {
    const std::string from = this->machine.file("new.txt");
    const std::string to = this->machine.file("old.txt");
    this->put(from, "new");
    this->put(to, "old");
    EXPECT_EQ(this->files().moveOver(from, to), SystemError::none);
    EXPECT_EQ(this->textOf(to), "new");
    EXPECT_EQ(this->files().moveOver(from, to), SystemError::fileNotFound);
    EXPECT_EQ(this->textOf(to), "new");
}

TYPED_TEST(FileSystemTest, CopiesAndLeavesAFileCopiedOntoItselfAlone) {
    const std::string from = this->machine.file("from.bmp");
    const std::string to = this->machine.file("to.bmp");
    const std::string content(200'000, 'x');
    this->put(from, content);
    EXPECT_EQ(this->files().copy(from, to), SystemError::none);
    EXPECT_EQ(this->textOf(to), content);
    this->put(from, "shorter");
    EXPECT_EQ(this->files().copy(from, to), SystemError::none);
    EXPECT_EQ(this->textOf(to), "shorter");
    EXPECT_EQ(this->files().copy(to, to), SystemError::none);
    EXPECT_EQ(this->textOf(to), "shorter");
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

TYPED_TEST(ReplacementFileTest, MakesAndReplacesFiles) {
    const std::string path = this->machine.file("a.playfile");
    EXPECT_EQ(this->replace(path, "one"), SystemError::none);
    EXPECT_EQ(this->textOf(path), "one");
    EXPECT_EQ(this->replace(path, "two"), SystemError::none);
    EXPECT_EQ(this->textOf(path), "two");
    EXPECT_EQ(this->machine.fileCount(), 1u);
}

TYPED_TEST(ReplacementFileTest, KeepsTheOldFileUntilCommitted) {
    const std::string path = this->machine.file("a.playfile");
    this->put(path, "old");
    {
        ReplacementFile file(this->files(), path);
        EXPECT_EQ(file.write("new"), SystemError::none);
        EXPECT_EQ(this->textOf(path), "old");
    }
    EXPECT_EQ(this->textOf(path), "old");
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

TEST(ReplacementFileInMemory, KeepsTheOldFileWhenTheDiskIsFull) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "a");
    machine.files().put(path, "old");
    machine.files().bytesLeft = 3;
    {
        ReplacementFile file(machine.files(), path);
        EXPECT_EQ(file.write("four"), SystemError::diskFull);
        EXPECT_EQ(file.commit(), SystemError::diskFull);
    }
    EXPECT_EQ(machine.files().content(path), "old");
    EXPECT_EQ(machine.files().fileNames().size(), 1u);
}

TEST(ReplacementFileInMemory, WritesInPlaceWhereTheFolderTakesNoNewFile) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "a");
    machine.files().put(path, "old");
    machine.files().setReadOnly(machine.library);
    ReplacementFile file(machine.files(), path);
    EXPECT_EQ(file.write("new"), SystemError::none);
    EXPECT_EQ(file.commit(), SystemError::none);
    EXPECT_EQ(machine.files().content(path), "new");
}

TEST(ReplacementInPlace, LeavesTheOldFileAloneUntilTheNewOneIsComplete) {
    MemoryPlatform machine;
    MemoryFileSystem& files = machine.files();
    const std::string path = JoinPath(machine.library, "old");
    files.put(path, "old content");
    files.setReadOnly(machine.library); // takes no new file
    {
        ReplacementFile file(files, path);
        EXPECT_EQ(file.write("half of the new"), SystemError::none);
        EXPECT_EQ(files.content(path), "old content");
    }
    EXPECT_EQ(files.content(path), "old content") << "given up";
}

TEST(WideIniFile, IsLeftAsItIs) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "wide.ini");
    const std::string text("\xff\xfe[\0S\0]\0", 8);
    machine.files().put(path, text);
    const auto profile = machine.openProfile(path);
    profile->write("S", "k", "v");
    EXPECT_NE(profile->commit(), SystemError::none);
    EXPECT_EQ(machine.files().content(path), text);
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
