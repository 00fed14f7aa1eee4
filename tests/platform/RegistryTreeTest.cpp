#include "platform/RegistryTree.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

using namespace std::string_view_literals;

RegistryKey machineKey(const char* path) { return {RegistryHive::localMachine, path}; }

TEST(RegistryTree, WritesKeysAndValuesByName) {
    RegistryTree tree;
    ASSERT_EQ(tree.setValue(machineKey("Software\\Maker\\B"), "Folder", "D:\\Data\\"), SystemError::none);
    ASSERT_EQ(tree.setValue(machineKey("Software\\Maker\\B"), "Answer", "100% \"yes\"\r\n"),
              SystemError::none);
    ASSERT_EQ(tree.addKey({RegistryHive::currentUser, "Software"}), SystemError::none);
    ASSERT_EQ(tree.setValue(machineKey("Software\\Maker\\a"), "", "\xe4"), SystemError::none);
    EXPECT_EQ(tree.text(), "[HKEY_CURRENT_USER\\Software]\n"
                           "\n[HKEY_LOCAL_MACHINE\\Software\\Maker\\a]\n"
                           "\"\"=\"\xe4\"\n"
                           "\n[HKEY_LOCAL_MACHINE\\Software\\Maker\\B]\n"
                           "\"Answer\"=\"100%25 %22yes%22%0D%0A\"\n"
                           "\"Folder\"=\"D:\\Data\\\"\n");
    EXPECT_EQ(RegistryTree(tree.text()).text(), tree.text());
}

TEST(RegistryTree, UnderstandsWhatAPersonTyped) {
    const RegistryTree tree(" [hkey_local_machine\\\\Software\\Maker\\] \r\n\t\"a\"=\"1\" \r\n"
                            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\MAKER]\r\n\"A\"=\"2\"\r\n\"b\"=\"3\"");
    ASSERT_TRUE(tree.value(machineKey("Software\\Maker"), "a"));
    EXPECT_EQ(*tree.value(machineKey("Software\\Maker"), "a"), "1");
    EXPECT_EQ(*tree.value(machineKey("Software\\Maker"), "b"), "3");
    EXPECT_EQ(tree.text(), "[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"a\"=\"1\"\n\"b\"=\"3\"\n");
}

TEST(RegistryTree, KeepsLinesThatItDoesNotUnderstand) {
    const struct {
        const char* why;
        std::string line;
    } cases[] = {
        {"remark", "# remark"},
        {"value without quotes", "name=value"},
        {"name without its quote", "name\"=\"value\""},
        {"value that is not closed", "\"name\"=\"value"},
        {"only quotes", "\"\"=\""},
        {"unfinished escape", "\"name\"=\"50%\""},
        {"escape of no character", "\"name\"=\"%ZZ\""},
        {"escaped NUL", "\"name\"=\"a%00b\""},
        {"raw NUL", std::string("\"name\"=\"a\0b\"", 12)},
        {"signed escape", "\"name\"=\"%+1\""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const std::string text = "[HKEY_USERS\\a]\n" + c.line + "\n\"z\"=\"1\"\n";
        RegistryTree tree(text);
        EXPECT_EQ(tree.text(), text);
        ASSERT_EQ(tree.setValue({RegistryHive::users, "a"}, "x", "2"), SystemError::none);
        EXPECT_EQ(tree.text(), "[HKEY_USERS\\a]\n\"x\"=\"2\"\n" + c.line + "\n\"z\"=\"1\"\n");
        ASSERT_EQ(tree.removeKey({RegistryHive::users, "a"}), SystemError::none);
        EXPECT_EQ(tree.text(), c.line + "\n");
    }
}

TEST(RegistryTree, KeepsTheValuesOfAKeyItDoesNotUnderstandOutOfOtherKeys) {
    for (const std::string header : {"[HKEY_NOWHERE\\b]", "[HKEY_USERS\\b", "[HKEY_USERS\\b%]", "["}) {
        SCOPED_TRACE(header);
        const std::string text =
            "[HKEY_USERS\\a]\n\"n\"=\"1\"\n\n" + header + "\n\"n\"=\"2\"\n[HKEY_USERS\\c]\n";
        RegistryTree tree(text);
        EXPECT_EQ(*tree.value({RegistryHive::users, "a"}, "n"), "1");
        EXPECT_EQ(tree.value({RegistryHive::users, "c"}, "n"), nullptr);
        EXPECT_EQ(tree.text(), text);
        ASSERT_EQ(tree.removeKey({RegistryHive::users, "c"}), SystemError::none);
        const RegistryTree again(tree.text());
        EXPECT_EQ(*again.value({RegistryHive::users, "a"}, "n"), "1");
        EXPECT_EQ(again.text(), tree.text());
    }
}

TEST(RegistryTree, KeepsLinesBeforeTheFirstKeyThere) {
    RegistryTree tree("# head\n\"stray\"=\"1\"\n[HKEY_USERS\\b]\n");
    ASSERT_EQ(tree.setValue({RegistryHive::users, "a"}, "n", "2"), SystemError::none);
    EXPECT_EQ(tree.text(), "# head\n\"stray\"=\"1\"\n[HKEY_USERS\\a]\n\"n\"=\"2\"\n\n[HKEY_USERS\\b]\n");
    EXPECT_EQ(RegistryTree(tree.text()).value({RegistryHive::users, "a"}, "stray"), nullptr);
}

TEST(RegistryTree, ReadsATextCutShortAtAnyByteAndWritesWhatItReadsAgain) {
    const std::string_view text = "# head\n[HKEY_USERS\\a\\b]\n\"n\"=\"%25\0x\"\r\n\n\xff\n"
                                  "[HKEY_USERS]\n\"\"=\"\"\n# end"sv;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string once = RegistryTree(text.substr(0, length)).text();
        EXPECT_EQ(RegistryTree(once).text(), once) << length;
    }
}

TEST(RegistryTree, TakesTimeInProportionToTheText) {
    // Any of these takes minutes when one line costs as much as the whole text.
    constexpr std::size_t size = 1 << 20;
    for (const std::string_view piece :
         {"[", "]", "\"", "\\", "%", "\n", " ", "[HKEY_USERS]\n", "\"a\"=\"b\"\n", "[HKEY_USERS\\a", "\\a"}) {
        std::string text = "[HKEY_USERS\\";
        while (text.size() < size)
            text += piece;
        const std::string once = RegistryTree(text + "]").text();
        EXPECT_EQ(RegistryTree(once).text(), once) << piece;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
