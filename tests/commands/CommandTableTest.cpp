#include "HostTest.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

const std::string kBuiltIn = [] {
    std::ifstream file(QRT_SAMPLES_FOLDER "/db/VistrelLite.dat", std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return text.substr(0, text.find("##BELL"));
}();

std::string repeated(const std::string& text, int times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

struct CommandTableTest : HostTest {
    static void setPath(const std::string& to) { WriteSetting("VistrelLite", "Commands", "KeyByteFile", to); }
    static SavedCommandTable loadAndSave() {
        const CommandTableOutcome loaded = LoadCommandTable(CommandTablePath());
        return SaveCommandTable(loaded.table, loaded.source);
    }
    std::string content() { return files().content(path_).value_or("no file"); }
    std::string rewritten(const std::string& text) {
        files().put(path_, text);
        EXPECT_FALSE(loadAndSave().error);
        return content();
    }

    std::string path_ = JoinPath(host_.inLibrary("db"), "VistrelLite.dat");
    std::string backup_ = path_ + ".bak";
};

TEST_F(CommandTableTest, KeepsRowsByteForByteButInTheirForm) {
    EXPECT_TRUE(LoadCommandTable(path_).isMissing);
    EXPECT_EQ(loadAndSave().path, path_);
    EXPECT_EQ(content(), kBuiltIn) << "where no file was";
    const struct {
        const char* why;
        std::string read, written;
    } cases[] = {{"five fields", "k\377b\3772\3773\3774\r\n", "k\377b\3772\3773\r\n"},
                 {"empty lines", "\r\n\r\nk\r\n", "\377\377\377\r\n\377\377\377\r\nk\377\377\377\r\n"},
                 {"no last line end", "a\377b\nc", "a\377b\377\377\r\nc\377\377\377\r\n"}};
    for (const auto& row : cases)
        for (const std::string& head : {kBuiltIn, repeated("\r\n", 14), repeated("##C\377x\377\377\n", 14)})
            EXPECT_EQ(rewritten(head + row.read), kBuiltIn + row.written) << row.why;
    EXPECT_EQ(rewritten(repeated("other\377x\377\377\r\n", 13)), kBuiltIn);
    EXPECT_EQ(files().fileNames(), Texts{path_});
}

TEST_F(CommandTableTest, TheFirstRowWithAKeyHoldsItsBytes) {
    files().put(path_, kBuiltIn + "##C\377other\nk\377first\nk\377second\n\377nameless\n##c\n");
    {
        clsCommandInterface commands;
        const std::pair<std::int16_t, const char*> byNumber[] = {
            {15, "\003"}, {17, "first"}, {18, "nameless"}, {0, "nameless"}, {-32768, "nameless"}};
        for (const auto& [number, bytes] : byNumber)
            EXPECT_EQ(commands.sCommandBytesByNum(number), bytes) << number;
        EXPECT_EQ(commands.sCommandKeyByNum(0), "");
        EXPECT_EQ(commands.sCommandBytesByKey("##c"), "") << "the case counts";
        EXPECT_EQ(commands.sCommandBytesByKey("K"), "K") << "unknown";
        const auto isError9 = testing::Throws<RuntimeError>(testing::Property(&RuntimeError::number, 9));
        EXPECT_THAT([&] { commands.sCommandKeyByNum(20); }, isError9);
        EXPECT_THAT([&] { commands.sCommandBytesByNum(32767); }, isError9);
        EXPECT_THAT([&] { commands.sCommandBytesByNum(20, "x"); }, isError9);
        commands.sCommandBytesByNum(-1, "no key");
        commands.sCommandBytesByNum(17, "x");
        commands.sCommandBytesByKey("D", "\001\240");
        commands.sCommandBytesByNum(1, "mine");
        commands.SortCommandByLargestFirst();
        EXPECT_EQ(commands.iTotalCommands(), 20);
    }
    EXPECT_TRUE(content().starts_with("|h:m|\377mine\377\377\r\n"));
    EXPECT_EQ(clsCommandInterface().sCommandBytesByNum(1), "\024") << "not from the file";
}

TEST(CommandTableValue, FindsKeysInUpTo32767RowsAlsoOfCopiesAndTakesItsOwnTexts) {
    CommandTable table = BuiltInCommands();
    const auto& rows = table.rows();
    while (table.count() < 32767)
        table.set("k" + std::to_string(table.count()), rows.at(table.count()).sCMDInfo[kCommandKey]);
    EXPECT_THROW(table.set("one more", "x"), RuntimeError);
    const CommandTable copy = table, moved = std::move(table);
    EXPECT_EQ(copy, moved);
    for (std::int32_t number = 15; number <= copy.count(); ++number)
        EXPECT_EQ(moved.find(copy.rows().at(number).sCMDInfo[kCommandKey]), number);
    EXPECT_EQ(moved.bytesOf("k32766"), "k32765");
    EXPECT_EQ(moved.find("one more"), std::nullopt);
}

TEST_F(CommandTableTest, IsAlwaysSavedAndKeepsACopyOfWhatWasNotReadOrNeverWasATable) {
    const std::string full = kBuiltIn + repeated("k\377b\377\377\r\n", 32767 - 14);
    const std::string withNew = kBuiltIn + "new\377x\377\377\r\n";
    EXPECT_EQ(rewritten(full), full);
    files().put(backup_, "kept before");
    const std::tuple<std::string, std::string, const char*> cases[] = {
        {full + "one too many", full, "2"},
        {"Dear Sir", withNew, "3"},
        {full + "another", full, "4"},
        {"Dear Sir", withNew, "3"},
        {"\n\nDear Sir", withNew, "5"},
        {full + "unread", withNew, "6"},
        {kBuiltIn.substr(0, kBuiltIn.size() - 3), withNew, "7"}};
    for (const auto& [read, written, copy] : cases) {
        files().put(path_, read);
        if (read.ends_with("unread"))
            host_.failReads(1, 1);
        clsCommandInterface().sCommandBytesByKey("new", "x");
        EXPECT_EQ(content(), written) << copy;
        EXPECT_EQ(files().content(backup_ + copy), read);
        const RuntimeError report = host_.reports.all.back().error;
        EXPECT_TRUE(report.isQuiet() && report.description().ends_with(backup_ + copy));
        EXPECT_EQ(takeErrors().size(), read.starts_with(full) ? (written == full ? 3u : 2u) : 1u);
    }
    EXPECT_EQ(files().content(backup_), "kept before");
}

TEST_F(CommandTableTest, IsReadAndWrittenWhereTheSettingPointsUnlessNothingIsThere) {
    const std::string elsewhere = JoinPath(host_.inLibrary("network"), "table.dat");
    setPath(elsewhere);
    clsCommandInterface();
    EXPECT_EQ(files().kindOf(host_.inLibrary("network")), EntryKind::folder);
    EXPECT_EQ(CommandTablePath(), path_) << "nothing was there";
    files().put(elsewhere, kBuiltIn + "k\n");
    setPath(elsewhere);
    EXPECT_EQ(loadAndSave().path, elsewhere);
    EXPECT_EQ(files().content(elsewhere), kBuiltIn + "k\377\377\377\r\n");
    setPath(JoinPath(JoinPath(host_.inLibrary("a"), "b"), "table.dat"));
    EXPECT_FALSE(loadAndSave().error);
    EXPECT_TRUE(files().content(backup_)) << "its rows were not read";
    EXPECT_EQ(files().kindOf(host_.inLibrary("a")), EntryKind::missing) << "one level is made, not two";
}

TEST_F(CommandTableTest, AtARootIsSavedWithOneSeparatorTooMany) {
    const std::string root(SplitPath(host_.machine.library).folder);
    const std::string name = JoinPath("db", "VistrelLite.dat");
    host_.machine.library = root;
    EXPECT_EQ(CommandTablePath(), root + name);
    EXPECT_EQ(loadAndSave().path, root + kPathSeparator + name);
}

} // namespace
} // namespace qrtVistrelClasses4
