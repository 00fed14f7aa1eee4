#include "TestHost.h"
#include "commands/clsCommandInterface.h"
#include "settings/RegistrySettings.h"

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

// clang-format off
const std::string kBuiltIn =
    "|h:m|\377\024\377\377\r\n" "|hm|\377\036\024\377\377\r\n" "|m/dd/y|\377\0041\377\377\r\n"
    "|mmmmmmm_dd,_yyy|\377\0042\377\377\r\n" "|dddddddd_mmmmmmmm_dd,_yyy|\377\0043\377\377\r\n"
    "|mm_d|\377\0044\377\377\r\n" "|ddddddd|\377\0045\377\377\r\n" "##F\377\006\377\377\r\n"
    "##C\377\003\377\377\r\n" "\246\377\177\377\377\r\n" "|CMMMMMM_DD,_YYY|\377\0046\377\377\r\n"
    "|CDDDDDDD_MMMMMMMM_DD,_YYY|\377\0047\377\377\r\n" "|CM_D|\377\0048\377\377\r\n" "|CDDDDDD|\377\0049\377\377\r\n";
// clang-format on

std::string repeated(const std::string& text, int times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

class CommandTableTest : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    std::string content() { return files().content(path_).value_or("no file"); }
    static void setPath(const std::string& path) {
        WriteSetting("VistrelLite", "Commands", "KeyByteFile", path);
    }
    static std::string storedPath() { return ReadSetting("VistrelLite", "Commands", "KeyByteFile", "none"); }
    static void loadAndSave() { const clsCommandInterface commands; }
    std::string rewritten(const std::string& text) {
        files().put(path_, text);
        loadAndSave();
        return content();
    }

    TestHost host_;
    std::string path_ = JoinPath(host_.inLibrary("db"), "VistrelLite.dat");
    std::string backup_ = path_ + ".bak";
};

TEST_F(CommandTableTest, AFirstObjectLeavesTheBuiltInRowsInAFile) {
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    EXPECT_EQ(clsCommandInterface().iTotalCommands(), 14);
    EXPECT_EQ(content(), kBuiltIn);
    EXPECT_EQ(storedPath(), path_);
    EXPECT_TRUE(host_.reports.all.empty()) << "a missing file is no error";
    clsCommandInterface().sCommandBytesByKey("k");
    EXPECT_THAT(trace.lines,
                testing::IsSupersetOf({"> Sub LoadCommandTable ()", "> Sub BuildBuiltInCommands ()",
                                       "> Function FindCommandIndex (sKey=k)", "> Sub SaveCommandTable ()"}));
}

TEST_F(CommandTableTest, KeepsRowsByteForByteButInTheirForm) {
    std::string all;
    for (int byte = 0; byte < 255; ++byte)
        if (byte != '\r' && byte != '\n')
            all += static_cast<char>(byte);
    const struct {
        const char* why;
        std::string read, written;
    } cases[] = {{"four fields", "k\377\001\377two\377three\r\n", "k\377\001\377two\377three\r\n"},
                 {"five fields", "k\377b\3772\3773\3774\r\n", "k\377b\3772\3773\r\n"},
                 {"no separator", "key\r\n", "key\377\377\377\r\n"},
                 {"empty lines", "\r\n\r\nk\r\n", "\377\377\377\r\n\377\377\377\r\nk\377\377\377\r\n"},
                 {"every byte", all + "\377" + all + "\377\377\r\n", all + "\377" + all + "\377\377\r\n"},
                 {"no last line end", "a\377b\nc", "a\377b\377\377\r\nc\377\377\377\r\n"}};
    for (const auto& row : cases)
        for (const std::string& head : {kBuiltIn, repeated("\r\n", 14), repeated("##C\377x\n", 14)})
            EXPECT_EQ(rewritten(head + row.read), kBuiltIn + row.written) << row.why;
    for (int lines = 0; lines < 14; ++lines)
        EXPECT_EQ(rewritten(repeated("other\377x\r\n", lines)), kBuiltIn) << lines;
    EXPECT_EQ(files().fileNames(), Texts{path_});
}

TEST_F(CommandTableTest, TheFirstRowWithAKeyGivesItsBytes) {
    files().put(path_, kBuiltIn + "##C\377other\nk\377first\nk\377second\n\377nameless\n##c\n");
    clsCommandInterface commands;
    const std::pair<std::int16_t, const char*> byNumber[] = {
        {15, "\003"}, {16, "first"}, {17, "first"}, {18, "nameless"}, {0, "nameless"}, {-32768, "nameless"}};
    for (const auto& [number, bytes] : byNumber)
        EXPECT_EQ(commands.sCommandBytesByNum(number), bytes) << number;
    EXPECT_EQ(commands.sCommandKeyByNum(0), "");
    EXPECT_EQ(commands.sCommandBytesByKey("##c"), "") << "the case counts";
    for (const char* unknown : {"K", "##C ", "\003"})
        EXPECT_EQ(commands.sCommandBytesByKey(unknown), unknown);
    const auto isError9 = testing::Throws<RuntimeError>(testing::Property(&RuntimeError::number, 9));
    EXPECT_THAT([&] { commands.sCommandKeyByNum(20); }, isError9);
    EXPECT_THAT([&] { commands.sCommandBytesByNum(32767); }, isError9);
    EXPECT_THAT([&] { commands.sCommandBytesByNum(20, "x"); }, isError9);
    EXPECT_TRUE(host_.reports.all.empty()) << "the error is the caller's";
}

TEST_F(CommandTableTest, WritesBytesToTheFirstRowWithTheKeyOrToANewOne) {
    const std::string before = kBuiltIn + "d\3772\377r\377s\r\nd\3773\377\377\r\n";
    files().put(path_, before);
    {
        clsCommandInterface commands;
        commands.sCommandBytesByKey("", "no key");
        commands.sCommandBytesByNum(0, "no key either");
        for (const char* key : {"d", "new"})
            commands.sCommandBytesByKey(key, "");
        commands.sCommandBytesByNum(16, "x"); // finds row 15
        commands.sCommandBytesByKey("D", "\001\240");
        commands.sCommandBytesByNum(1, "mine");
        commands.SortCommandByLargestFirst();
        EXPECT_EQ(commands.sCommandKeyByNum(17), "D");
        EXPECT_EQ(content(), before) << "until the end of the object's life";
    }
    EXPECT_EQ(content(), "|h:m|\377mine" + kBuiltIn.substr(7) +
                             "d\377x\377r\377s\r\nd\3773\377\377\r\nD\377\001\240\377\377\r\n");
    EXPECT_EQ(clsCommandInterface().sCommandBytesByNum(1), "\024") << "not from the file";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(CommandTableTest, HoldsAsManyRowsAsCanBeNumbered) {
    const std::string full = kBuiltIn + repeated("k\377b\377\377\r\n", 32767 - 14);
    files().put(path_, full);
    {
        clsCommandInterface commands;
        commands.sCommandBytesByKey("new", "x");
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
        EXPECT_EQ(commands.iTotalCommands(), 32767);
    }
    EXPECT_EQ(files().fileNames(), Texts{path_});
    EXPECT_EQ(rewritten(full + "one too many"), full);
    EXPECT_EQ(files().content(backup_), full + "one too many");
    EXPECT_TRUE(host_.reports.all.at(0).error.isQuiet());
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

TEST_F(CommandTableTest, LosesNoRowsToAFileThatCannotBeReadOrWritten) {
    const std::optional<std::string> rows = "the rows", none;
    const struct {
        const char* why;
        int failingReads;
        bool readOnly;
        std::optional<std::uint64_t> bytesLeft;
        std::optional<std::string> after, backup;
        Numbers errors;
    } cases[] = {{"unreadable", 1, false, {}, kBuiltIn, rows, {75}},
                 {"nor can it be copied", 2, false, {}, kBuiltIn, rows, {75}},
                 {"nor be written", 2, true, {}, rows, none, {75, 75}},
                 {"no room for a copy", 1, false, 7, none, rows, {75, 61}},
                 {"no room for the file", 0, false, kBuiltIn.size() - 1, rows, none, {61}}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        (void)files().remove(backup_);
        files().put(path_, *rows);
        files().setReadOnly(path_, row.readOnly);
        files().bytesLeft = row.bytesLeft;
        host_.failReads(1, row.failingReads);
        loadAndSave();
        EXPECT_EQ(files().content(path_), row.after);
        EXPECT_EQ(files().content(backup_), row.backup);
        EXPECT_EQ(files().fileNames().size(), (row.after ? 1u : 0u) + (row.backup ? 1u : 0u));
        for (const ErrorReport& report : host_.reports.all)
            EXPECT_TRUE(report.error.isQuiet());
        EXPECT_EQ(host_.reports.takeNumbers(), row.errors);
    }
}

TEST_F(CommandTableTest, IsReadAndWrittenWhereTheSettingPointsUnlessNothingIsThere) {
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "table.dat");
    setPath(elsewhere);
    loadAndSave();
    EXPECT_EQ(files().kindOf(host_.inLibrary("network")), EntryKind::folder);
    EXPECT_EQ(files().fileNames(), Texts{path_}) << "nothing was there";
    EXPECT_EQ(storedPath(), path_);
    files().put(elsewhere, kBuiltIn + "k\n");
    setPath(elsewhere);
    loadAndSave();
    EXPECT_EQ(files().content(elsewhere), kBuiltIn + "k\377\377\377\r\n");
    EXPECT_EQ(content(), kBuiltIn);
    EXPECT_EQ(storedPath(), elsewhere);
    setPath(JoinPath(JoinPath(host_.inLibrary("a"), "b"), "table.dat"));
    loadAndSave();
    EXPECT_EQ(files().kindOf(host_.inLibrary("a")), EntryKind::missing) << "one level is made, not two";
    EXPECT_EQ(storedPath(), path_);
    EXPECT_EQ(files().content(backup_), kBuiltIn) << "its rows were not read";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(CommandTableTest, AtARootTheSettingIsSavedWithOneSeparatorTooMany) {
    const std::string root(SplitPath(host_.machine.library).folder);
    const std::string name = JoinPath("db", "VistrelLite.dat");
    host_.machine.library = root;
    loadAndSave();
    EXPECT_EQ(storedPath(), root + kPathSeparator + name) << "nothing was there";
    EXPECT_EQ(files().content(root + name), kBuiltIn);
    TestHost other;
    other.machine.library = root;
    other.machine.files().put(root + name, "");
    loadAndSave();
    EXPECT_EQ(storedPath(), root + name) << "where loading looks";
}

} // namespace
} // namespace qrtVistrelClasses4
