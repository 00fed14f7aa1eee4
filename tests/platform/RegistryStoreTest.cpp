#include "Machines.h"

namespace qrtVistrelClasses4 {
namespace {

using Names = std::vector<std::string>;

template <class Machine>
class RegistryStoreTest : public OnEveryMachine<Machine> {
protected:
    RegistryStoreTest() { (void)registry().deleteKey(root_); }
    ~RegistryStoreTest() override { (void)registry().deleteKey(root_); }

    RegistryStore& registry() { return this->platform().registry(); }
    RegistryKey key(const std::string& below = {}) const {
        return {root_.hive, below.empty() ? root_.path : root_.path + '\\' + below};
    }

private:
    const RegistryKey root_{RegistryHive::currentUser, "Software\\qrtVistrelClasses4 contract test"};
};
TYPED_TEST_SUITE(RegistryStoreTest, Machines, MachineName);

TYPED_TEST(RegistryStoreTest, GivesBackWhatWasWritten) {
    const struct {
        const char* why;
        std::string name, value;
    } cases[] = {
        {"plain", "AppPath", "D:\\Data"},
        {"empty text", "Empty", ""},
        {"the value without a name", "", "default"},
        {"text that ends in a separator", "Folder", "D:\\Data\\"},
        {"quotes, brackets, equals signs and percent signs", "a\"=\"[b]%", "\"x\"=\"y\" [z] 100% %41"},
        {"blanks at the ends", " name ", "  value  "},
        {"line breaks and other control characters", "lines", "a\r\nb\nc\td\x01\x7f"},
        {"letters of the ANSI code page", "\xc4rger", "\xe4\xf6\xfc\xdf \x80"},
        {"starts like a remark", "#name", "#value"},
        {"longer than any fixed buffer", "long", std::string(5000, 'x')},
    };
    RegistryStore& store = this->registry();
    const RegistryKey settings = this->key("Settings");
    for (const std::string before : {"replaced", ""})
        for (const auto& c : cases)
            EXPECT_EQ(store.writeString(settings, c.name, before + c.value), SystemError::none) << c.why;
    for (const auto& c : cases)
        EXPECT_EQ(store.readString(settings, c.name).value, c.value) << c.why;
    for (std::size_t left = std::size(cases); left > 0; --left) {
        EXPECT_EQ(store.valueNames(settings).value.size(), left);
        EXPECT_EQ(store.deleteValue(settings, cases[left - 1].name), SystemError::none);
    }
}

TYPED_TEST(RegistryStoreTest, ReportsMissingKeysAndValues) {
    RegistryStore& store = this->registry();
    ASSERT_EQ(store.createKey(this->key("there")), SystemError::none);
    for (const char* name : {"there", "missing", "missing\\deeper"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(store.readString(this->key(name), "value").error, SystemError::fileNotFound);
        EXPECT_EQ(store.deleteValue(this->key(name), "value"), SystemError::fileNotFound);
    }
    EXPECT_FALSE(store.keyExists(this->key("missing")));
    EXPECT_EQ(store.deleteKey(this->key("missing")), SystemError::fileNotFound);
    EXPECT_EQ(store.subkeys(this->key("missing")).error, SystemError::fileNotFound);
    EXPECT_EQ(store.valueNames(this->key("missing")).error, SystemError::fileNotFound);
}

TYPED_TEST(RegistryStoreTest, FindsKeysAndValuesInAnyCaseAndKeepsTheirSpelling) {
    RegistryStore& store = this->registry();
    ASSERT_EQ(store.writeString(this->key("Vistrel3"), "\xc4pfel", "1"), SystemError::none);
    ASSERT_EQ(store.writeString(this->key("VISTREL3"), "\xe4PFEL", "2"), SystemError::none);
    EXPECT_EQ(store.readString(this->key("vistrel3"), "\xc4PFEL").value, "2");
    EXPECT_EQ(store.subkeys(this->key()).value, Names{"Vistrel3"});
    EXPECT_EQ(store.valueNames(this->key("vistrel3")).value, Names{"\xc4pfel"});
}

TYPED_TEST(RegistryStoreTest, MakesTheKeysAboveAndKeepsThemWhenTheLastKeyBelowGoes) {
    RegistryStore& store = this->registry();
    ASSERT_EQ(store.createKey(this->key("a\\b\\c")), SystemError::none);
    ASSERT_EQ(store.createKey(this->key("a\\b\\c")), SystemError::none);
    EXPECT_TRUE(store.keyExists(this->key("a")));
    EXPECT_EQ(store.subkeys(this->key("a")).value, Names{"b"});
    EXPECT_EQ(store.valueNames(this->key("a")).value, Names{});
    ASSERT_EQ(store.deleteKey(this->key("a\\b\\c")), SystemError::none);
    EXPECT_TRUE(store.keyExists(this->key("a\\b")));
    EXPECT_EQ(store.subkeys(this->key("a\\b")).value, Names{});
}

TYPED_TEST(RegistryStoreTest, DeletesAKeyWithAllBelowItAndNothingElse) {
    RegistryStore& store = this->registry();
    for (const char* name : {"ab", "a", "a\\b", "a\\b\\c", "a b"})
        ASSERT_EQ(store.writeString(this->key(name), "v", name), SystemError::none);
    ASSERT_EQ(store.deleteKey(this->key("a")), SystemError::none);
    for (const char* gone : {"a", "a\\b", "a\\b\\c"})
        EXPECT_FALSE(store.keyExists(this->key(gone))) << gone;
    for (const char* kept : {"ab", "a b"})
        EXPECT_EQ(store.readString(this->key(kept), "v").value, kept);
    EXPECT_EQ(store.subkeys(this->key()).value, (Names{"a b", "ab"}));
}

TYPED_TEST(RegistryStoreTest, NeverDeletesARootKey) {
    for (const char* path : {"", "\\"})
        EXPECT_EQ(this->registry().deleteKey({RegistryHive::users, path}), SystemError::accessDenied);
    EXPECT_TRUE(this->registry().keyExists({RegistryHive::users, ""}));
}

TYPED_TEST(RegistryStoreTest, RefusesAnUnknownRootKey) {
    const RegistryKey unknown{static_cast<RegistryHive>(7), "Software"};
    EXPECT_FALSE(this->registry().keyExists(unknown));
    EXPECT_EQ(this->registry().readString(unknown, "v").error, SystemError::fileNotFound);
    EXPECT_EQ(this->registry().writeString(unknown, "v", "x"), SystemError::fileNotFound);
    EXPECT_EQ(this->registry().createKey(unknown), SystemError::fileNotFound);
    EXPECT_EQ(this->registry().deleteKey(unknown), SystemError::fileNotFound);
}

} // namespace
} // namespace qrtVistrelClasses4
