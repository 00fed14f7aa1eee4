#include "Machines.h"
#include "platform/IniText.h"

#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kBufferSize = 255;

template <class Machine>
class ProfileFileTest : public OnEveryMachine<Machine> {
protected:
    SystemError change(const std::string& path, const char* section, const char* key, const char* value) {
        const auto profile = this->platform().openProfile(path);
        profile->write(section, key, value);
        return profile->commit();
    }
};
TYPED_TEST_SUITE(ProfileFileTest, Machines);

TYPED_TEST(ProfileFileTest, FindsSectionsAndKeys) {
    const struct {
        const char* why;
        std::string text, expected;
        const char *section = "S", *key = "k", *defaultValue = "none";
        std::size_t bufferSize = kBufferSize;
    } cases[] = {
        {"blanks around section, key and value", " [ S ] \r\n\tk = \v v \f\r\n", "v", " S ", " k "},
        {"UTF-8 mark, line ends of CR", "\xef\xbb\xbf[S]\rk=v\r", "v"},
        {"line ends of LF, rest of a section's line, mark of old editors", "[S] ; note\nk=v\x1a", "v"},
        {"16-bit characters", std::string("\xff\xfe[\0S\0]\0\n\0k\0=\0v\0\r\0\n\0", 20), "v"},
        {"lines before the first section have no name", "k=u\r\n[S]\r\nk=v\r\n", "u", ""},
        {"value ends at a NUL", std::string("[S]\r\nk=a\0b\r\n", 12), "a"},
        {"longer than fits", "[S]\r\nk=" + std::string(300, 'x'), std::string(254, 'x')},
        {"a bracket in a section's name", "[S]\r\nk=u\r\n[S]x]\r\nk=v\r\n", "v", "S]x"},
        {"default loses only blanks after it", "", "  64\t", "S", "k", "  64\t  "},
        {"its quotes are taken off", "", " 64 ", "S", "k", "' 64 '"},
        {"no room at all", "", "", "S", "k", "64", 0},
    };
    for (const auto& c : cases) {
        const std::string path = this->file(c.why); // not used before: the system remembers what it read
        this->put(path, c.text);
        const auto profile = this->platform().openProfile(path);
        EXPECT_EQ(profile->read(c.section, c.key, c.defaultValue, c.bufferSize), c.expected) << c.why;
    }
}

TYPED_TEST(ProfileFileTest, ChangesOneValueAndKeepsTheRest) {
    const struct {
        const char *why, *before, *after;
        const char *section = "S", *key = "k", *value = "w";
    } cases[] = {
        {"key keeps its spelling", "[S]\r\nKey=v\r\nj=1\r\n", "[S]\r\nKey=w\r\nj=1\r\n", "s", "kEY"},
        {"blanks before the new value go", "[S]\r\nk=v\r\n", "[S]\r\nk=\" w \" \r\n", "S", "k", " \" w \" "},
        {"new key at the section's end", "[S]\r\n;k=v\r\n[T]\r\n", "[S]\r\n;k=v\r\nk=w\r\n[T]\r\n"},
        {"every line end becomes CR LF", "[S]\n[x\nk=v\nj=1\n", "[S]\r\n[x\r\nk=w\r\nj=1\r\n"},
        {"UTF-8 mark stays in front", "\xef\xbb\xbf[S]\r\n", "\xef\xbb\xbfk=w\r\n[S]\r\n", ""},
    };
    for (const auto& c : cases) {
        const std::string path = this->file(c.why);
        this->put(path, c.before);
        EXPECT_EQ(this->change(path, c.section, c.key, c.value), SystemError::none);
        EXPECT_EQ(this->textOf(path), c.after) << c.why;
    }
}

TYPED_TEST(ProfileFileTest, FindsTheFileInAnotherCaseAndNeitherMakesAFolderNorChangesAReadOnlyFile) {
    const std::string path = this->file("VISTRELLITE.INI"), inOtherCase = this->file("VistrelLite.ini");
    this->put(path, "[S]\r\nk=v\r\n");
    EXPECT_EQ(this->platform().openProfile(inOtherCase)->read("S", "k", "none", kBufferSize), "v");
    EXPECT_EQ(this->change(inOtherCase, "S", "k", "w"), SystemError::none);
    EXPECT_EQ(this->change(JoinPath(this->file("none"), "a.ini"), "S", "k", "w"),
              SystemError::folderNotFound);
    this->machine.protect(path);
    const bool mayWriteAnyway = !std::is_same_v<TypeParam, MemoryMachine> && // as root under Wine
                                this->files().open(path, OpenMode::append).error() == SystemError::none;
    EXPECT_TRUE(mayWriteAnyway || this->change(path, "S", "k", "x") == SystemError::accessDenied);
    EXPECT_EQ(this->textOf(path), "[S]\r\nk=w\r\n");
    EXPECT_EQ(this->machine.fileCount(), 1);
}

TEST(IniText, MakesManyChangesAndKeepsBlankLinesAndIndentationOfOtherLines) {
    const IniChange changes[] = {{"S", "k", "w"},         {"S", "n", "y"}, {"R", "b", "1"},
                                 {"R", "a", "2"},         {"s", "N", "x"}, {"S", "o", std::nullopt},
                                 {"Q", "o", std::nullopt}};
    EXPECT_EQ(
        ApplyIniChanges("\r\n  [S]  \r\nO=1\r\n\r\n  k = v  \r\no\r\n\tj=1\r\n\r\n \t\r\n[T]\r\n", changes),
        "\r\n  [S]  \r\n\r\nk=w\r\n\tj=1\r\nn=x\r\n\r\n \t\r\n[T]\r\n[R]\r\nb=1\r\na=2\r\n");
}

TEST(IniText, LeavesAFileOf16BitCharactersAsItIs) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "wide.ini"), text("\xff\xfe[\0S\0]\0", 8);
    machine.files().put(path, text);
    const auto profile = machine.openProfile(path);
    profile->write("S", "k", "v");
    EXPECT_EQ(profile->commit(), SystemError::unsupported);
    EXPECT_EQ(machine.files().content(path), text);
}

TEST(IniText, TakesTimeInProportionToTheText) {
    std::string text; // takes minutes when one line costs as much as the whole text
    for (const char* piece : {"[", "]", "=", "\r", "\n", " ", "[S]\r\n", "k=v\r\n", "[]\r\n\r\n"})
        for (int i = 0; i < 200'000; ++i)
            text += piece;
    std::vector<IniChange> changes;
    for (int i = 0; i < 100'000; ++i)
        changes.push_back({std::to_string(i % 1000), std::to_string(i), "v"});
    EXPECT_EQ(ApplyIniChanges(ApplyIniChanges(text, changes).value(), changes), std::nullopt);
}

} // namespace
} // namespace qrtVistrelClasses4
