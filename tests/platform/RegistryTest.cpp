#include "Machines.h"
#include "platform/LetterCase.h"
#include "platform/RegistryTree.h"

#include <gmock/gmock.h>

#include <map>

namespace qrtVistrelClasses4 {
namespace {

using enum SystemError;
using Names = std::vector<std::string>;

template <class Machine>
class RegistryStoreTest : public OnEveryMachine<Machine> {
protected:
    RegistryStoreTest() { (void)this->platform().registry().deleteKey(key()); }
    ~RegistryStoreTest() override { (void)this->platform().registry().deleteKey(key()); }
    static RegistryKey key(const std::string& below = {}) {
        return {RegistryHive::currentUser, "Software\\qrtVistrelClasses4 contract test\\" + below};
    }
};
TYPED_TEST_SUITE(RegistryStoreTest, Machines);

TYPED_TEST(RegistryStoreTest, GivesBackWhatWasWrittenUnderNamesInAnyCaseAndKeepsTheirSpelling) {
    RegistryStore& store = this->platform().registry();
    const RegistryKey key = TestFixture::key("Any case"), inOtherCase = TestFixture::key("ANY CASE");
    const std::map<std::string, std::string> values{
        {"", "the value without a name"},
        {" name ", "  value  "},
        {"#name", "#value"},
        {"Empty", ""},
        {"Folder", "D:\\Data\\"},
        {"a\"=\"[b]%", "\"x\"=\"y\" [z] 100% %41"},
        {"lines", "a\r\nb\nc\td\x01\x7f"},
        {"longer than any fixed buffer", std::string(5000, 'x')},
        {"\xe4rger", "\xe4\xf6\xfc\xdf \x80"},
    };
    Names names;
    for (const auto& [name, value] : values) {
        names.push_back(name);
        EXPECT_EQ(store.writeString(key, name, "replaced" + value), none) << name;
        EXPECT_EQ(store.writeString(inOtherCase, AnsiUpperCase(name), value), none) << name;
        EXPECT_EQ(store.readString(inOtherCase, AnsiUpperCase(name)).value(), value);
    }
    EXPECT_EQ(store.subkeys(TestFixture::key()).value(), Names{"Any case"});
    EXPECT_THAT(store.valueNames(inOtherCase).value(), testing::UnorderedElementsAreArray(names));
    for (const std::string& name : names)
        EXPECT_EQ(store.deleteValue(key, AnsiUpperCase(name)), none) << name;
    EXPECT_EQ(store.valueNames(key).value(), Names{});
}

TYPED_TEST(RegistryStoreTest, DeletesAKeyWithAllBelowItAndNothingElse) {
    RegistryStore& store = this->platform().registry();
    for (const char* name : {"ab", "a\\b\\c", "a b"})
        ASSERT_EQ(store.writeString(TestFixture::key(name), "v", name), none);
    ASSERT_EQ(store.createKey(TestFixture::key("a\\b\\c")), none);
    EXPECT_EQ(store.readString(TestFixture::key("a\\b\\c"), "v").value(), "a\\b\\c");
    EXPECT_EQ(store.subkeys(TestFixture::key()).value(), (Names{"a", "a b", "ab"}));
    ASSERT_EQ(store.deleteKey(TestFixture::key("a\\b\\c")), none);
    EXPECT_EQ(store.subkeys(TestFixture::key("a")).value(), Names{"b"}) << "though nothing is in it";
    ASSERT_EQ(store.deleteKey(TestFixture::key("a")), none);
    EXPECT_FALSE(store.keyExists(TestFixture::key("a"))) << "though others start so";
    EXPECT_EQ(store.subkeys(TestFixture::key()).value(), (Names{"a b", "ab"}));
}

TYPED_TEST(RegistryStoreTest, RefusesMissingKeysAndNeverDeletesARootKey) {
    RegistryStore& store = this->platform().registry();
    const RegistryKey unknown{static_cast<RegistryHive>(7), "Software"};
    for (const RegistryKey& key : {unknown, TestFixture::key("missing\\deeper")}) {
        EXPECT_FALSE(store.keyExists(key)) << key.path;
        EXPECT_EQ(
            (std::vector{store.readString(key, "v").error(), store.deleteValue(key, "v"),
                         store.deleteKey(key), store.subkeys(key).error(), store.valueNames(key).error()}),
            std::vector(5, fileNotFound));
    }
    EXPECT_EQ(store.createKey(unknown), fileNotFound);
    EXPECT_EQ(store.writeString(unknown, "v", "x"), fileNotFound);
    ASSERT_EQ(store.createKey(TestFixture::key("there")), none);
    EXPECT_EQ(store.readString(TestFixture::key("there"), "v").error(), fileNotFound);
    EXPECT_EQ(store.deleteValue(TestFixture::key("there"), "v"), fileNotFound);
    for (const std::string& path : {std::string(), std::string("\\"), std::string("\0a", 2)})
        EXPECT_EQ(store.deleteKey({RegistryHive::users, path}), accessDenied);
    EXPECT_TRUE(store.keyExists({RegistryHive::users, ""}));
}

const RegistryKey kA{RegistryHive::users, "a"}, kC{RegistryHive::users, "c"};

TEST(RegistryTree, WritesKeysAndValuesByNameAndUnderstandsWhatAPersonTyped) {
    RegistryTree tree(" [hkey_local_machine\\\\Software\\Maker\\] \r\n\t\"a\"=\"1\" \r\n"
                      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\MAKER]\r\n\"A\"=\"2\"\r\n\"b\"=\"3\"");
    const RegistryKey maker{RegistryHive::localMachine, "Software\\Maker"};
    EXPECT_EQ(tree.setValue(maker, "B", "D:\\Data\\"), none);
    EXPECT_EQ(tree.setValue(maker, "", "100% \"\xe4\"\x7f\n"), none);
    EXPECT_EQ(tree.addKey({RegistryHive::currentUser, "Software"}), none);
    EXPECT_EQ(tree.text(), "[HKEY_CURRENT_USER\\Software]\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n"
                           "\"\"=\"100%25 %22\xe4%22%7F%0A\"\n\"a\"=\"1\"\n\"b\"=\"D:\\Data\\\"\n");
}

TEST(RegistryTree, KeepsLinesThatItDoesNotUnderstand) {
    // clang-format off
    const std::string lines[] = {
        "# remark", "name=value", "name\"=\"value\"", "\"name\"=\"value", "\"\"=\"", "\"name\"=\"50%\"",
        "\"name\"=\"%ZZ\"", "\"name\"=\"%+1\"", "\"name\"=\"a%00b\"", {"\"name\"=\"a\0b\"", 12}};
    // clang-format on
    for (const std::string& line : lines) {
        RegistryTree tree(line + "\n[HKEY_USERS\\a]\n" + line + "\n\"z\"=\"1\"\n");
        EXPECT_EQ(tree.setValue(kA, "x", "2"), none);
        EXPECT_EQ(tree.text(), line + "\n[HKEY_USERS\\a]\n\"x\"=\"2\"\n" + line + "\n\"z\"=\"1\"\n");
        EXPECT_EQ(tree.removeKey(kA), none);
        EXPECT_EQ(tree.text(), line + "\n" + line + "\n");
    }
}

TEST(RegistryTree, KeepsTheValuesOfAKeyItDoesNotUnderstandOutOfOtherKeys) {
    for (const std::string header : {"[HKEY_NOWHERE\\b]", "[HKEY_USERS\\b", "[HKEY_USERS\\b%]", "["}) {
        const std::string kept = "[HKEY_USERS\\a]\n\"n\"=\"1\"\n" + header + "\n\"n\"=\"2\"\n";
        RegistryTree tree(kept + "[HKEY_USERS\\c]\n");
        EXPECT_EQ(tree.valueNames(kC), Names{}) << header;
        EXPECT_EQ(tree.removeKey(kC), none);
        EXPECT_EQ(tree.text(), kept);
    }
}

TEST(RegistryTree, WritesWhatItReadsAgainHoweverCutShortOrLong) {
    using namespace std::string_literals;
    std::string whole = "# head\n[HKEY_USERS\\a]\n\"n\"=\"%25\0x\"\r\n\n\xff\n[HKEY_USERS]\n\"\"=\"\""s;
    const std::size_t headSize = whole.size();
    for (const char* piece : {"[", "]", "\"", "\\", "%", "\n", "[HKEY_USERS]\n", "\"a\"=\"b\"\n", "\\a"})
        for (int i = 0; i < 200'000; ++i) // takes minutes when one line costs as much as the whole text
            whole += piece;
    for (std::size_t size = 0; size <= whole.size(); size += size < headSize ? 1 : whole.size() - headSize) {
        const std::string once = RegistryTree(whole.substr(0, size)).text();
        EXPECT_TRUE(RegistryTree(once).text() == once) << size;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
