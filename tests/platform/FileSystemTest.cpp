#include "Machines.h"
#include "platform/CodePage.h"
#include "platform/FileNames.h"
#include "platform/ReplacementFile.h"

#include <numeric>
#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

using enum SystemError;

template <class Machine>
class FileSystemTest : public OnEveryMachine<Machine> {};
TYPED_TEST_SUITE(FileSystemTest, Machines);

TYPED_TEST(FileSystemTest, GivesBackEveryByteOfAFileAsAWholeAndInPieces) {
    const std::string path = this->file("a.txt");
    std::string large(300'000, '\0');
    std::iota(large.begin(), large.end(), '\0');
    this->put(path, "a line that is replaced\n");
    this->put(path, large.substr(0, 10));
    this->put(path, large.substr(10), OpenMode::append);
    EXPECT_EQ(this->textOf(path), large);
    EXPECT_EQ(this->files().sizeOf(path).value(), large.size());
    const auto input = this->files().openToRead(path);
    EXPECT_EQ(input.value()->size(), large.size());
    for (const std::uint64_t offset : {299'990ULL, 0ULL, 123'456ULL, 300'000ULL, 1ULL << 40}) {
        std::string piece(100, '?');
        piece.resize(input.value()->readAt(offset, piece).value());
        EXPECT_EQ(piece, large.substr(std::min<std::size_t>(offset, large.size()), 100)) << offset;
    }
}

TYPED_TEST(FileSystemTest, DistinguishesAMissingFileAMissingFolderAndAFolder) {
    FileSystem& files = this->files();
    const std::string folder = this->file("folder"), copy = this->file("copy");
    ASSERT_EQ(files.createFolder(folder), none);
    const std::tuple<std::string, EntryKind, SystemError, SystemError> cases[] = {
        {this->file("none.txt"), EntryKind::missing, fileNotFound, none},
        {JoinPath(this->file("none"), "a.txt"), EntryKind::missing, folderNotFound, folderNotFound},
        {folder, EntryKind::folder, accessDenied, accessDenied},
        {folder + std::string("\0.txt", 5), EntryKind::missing, folderNotFound, folderNotFound}};
    for (const auto& [path, kind, whenRead, whenMade] : cases) {
        SCOPED_TRACE(path);
        EXPECT_EQ(files.kindOf(path), kind);
        EXPECT_EQ(files.hasEntry(path), kind != EntryKind::missing);
        EXPECT_EQ((std::vector{files.read(path).error(), files.openToRead(path).error(),
                               files.sizeOf(path).error()}),
                  std::vector(3, whenRead));
        EXPECT_EQ((std::vector{files.mayWrite(path), ReplacementFile(files, path).error()}),
                  std::vector(2, whenMade));
        if (kind == EntryKind::missing) {
            EXPECT_EQ((std::vector{files.remove(path), files.copy(path, copy)}), std::vector(2, whenRead));
            EXPECT_EQ(files.createBeside(path).error(), whenMade);
        }
        EXPECT_EQ(files.open(path, OpenMode::replace).error(), whenMade);
    }
    EXPECT_EQ(files.kindOf(WithTrailingSeparator(folder)), EntryKind::folder);
    EXPECT_EQ(files.createFolder(folder), alreadyExists);
    EXPECT_EQ(files.createFolder(JoinPath(this->file("none"), "a")), folderNotFound) << "one level at a time";
}

TYPED_TEST(FileSystemTest, CopiesTheWholeFileOrKeepsTheOldTarget) {
    const std::string from = this->file("from.bmp"), to = this->file("to.bmp"), content(200'000, 'x');
    this->put(from, content);
    this->put(to, content + "old");
    for (const std::string& source : {from, to}) { // a file copied onto itself is left alone
        EXPECT_EQ(this->files().copy(source, to), none);
        EXPECT_EQ(this->textOf(to), content);
    }
    this->put(from, "new");
    EXPECT_EQ(this->files().copy(this->file("none.bmp"), to), fileNotFound);
    EXPECT_EQ(this->files().copy(from, JoinPath(this->file("none"), "a.bmp")), folderNotFound);
    this->machine.protect(to);
    EXPECT_EQ(this->files().copy(from, to), accessDenied);
    EXPECT_EQ(this->textOf(to), content);
    EXPECT_EQ(this->machine.fileCount(), 2);
}

TYPED_TEST(FileSystemTest, FindsANameSpeltInAnotherCaseOrEncodingAndTheFolderOfARelativeOne) {
    const std::string path = this->file("Fnt4x8.CFF"), full = this->files().fullName("a.txt");
    this->put(path, "font");
    EXPECT_EQ(this->files().existingName(this->file("FNT4X8.cff")), path);
    for (const std::string& asGiven : {path, this->file("FNT5X9.cff"), JoinPath(this->file("none"), "a")})
        EXPECT_EQ(this->files().existingName(asGiven), asGiven);
    EXPECT_TRUE(IsRootedPath(full) && SplitPath(full).name == "a.txt") << full;
    EXPECT_EQ(this->files().fullName(path), path);
    if (!AreNamesUtf8())
        return; // Windows ignores case, and converts names itself
    this->put(this->file("fnt4x8.CFF"), "font");
    EXPECT_EQ(this->files().existingName(this->file("FNT4X8.cff")), path) << "the first by its bytes";
    const std::string folder = this->file("\u00dc"), inFolder = JoinPath(folder, "Gr\u00f6\u00dfe.\u041a");
    ASSERT_EQ(this->files().createFolder(folder), none);
    this->put(inFolder, "picture");
    for (const char* name :
         {"\xdc/Gr\xf6\xdf\x65.\u041a", "\xdc/GR\xd6\xdf\x45.\u041a", "\u00dc/gr\u00f6\xdf\x45.\u041a"})
        EXPECT_EQ(this->files().existingName(this->file(name)), inFolder) << name;
    const std::string other = JoinPath(folder, "Gr\u00f6\u00dfe.\u040a");
    EXPECT_EQ(this->files().existingName(other), other) << "9A, a byte of a letter, is none by itself";
}

TEST(ReplacementFile, IsWrittenInPlaceOnceCompleteWhereTheFolderTakesNoNewFile) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "a");
    machine.files().put(path, "old");
    machine.files().setReadOnly(machine.library);
    ReplacementFile file(machine.files(), path);
    EXPECT_EQ(file.write("new"), none);
    EXPECT_EQ(machine.files().content(path), "old");
    EXPECT_EQ(file.commit(), none);
    EXPECT_EQ(machine.files().content(path), "new");
}

} // namespace
} // namespace qrtVistrelClasses4
