#include "Machines.h"

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kBufferSize = 255;

template <class Machine>
class ProfileFileTest : public OnEveryMachine<Machine> {
protected:
    /// A name that was not used before: the system may remember what it read under one.
    std::string freshName() { return this->machine.file("profile" + std::to_string(++names_) + ".ini"); }

private:
    int names_ = 0;
};
TYPED_TEST_SUITE(ProfileFileTest, Machines, MachineName);

TYPED_TEST(ProfileFileTest, FindsSectionsAndKeys) {
    const struct {
        const char* why;
        std::string text, section, key, expected;
    } cases[] = {
        {"plain", "[S]\r\nk=v\r\n", "S", "k", "v"},
        {"section and key in another case", "[sEC]\r\nKey=v\r\n", "Sec", "kEY", "v"},
        {"letters beyond ASCII are taken with case", "[S]\r\n\xc4=v\r\n", "S", "\xe4", "default"},
        {"blanks around section, key and value", " [ S ] \r\n\tk = \v v \f\r\n", "S", "k", "v"},
        {"blanks around the names asked for", "[S]\r\nk=v\r\n", " S ", " k ", "v"},
        {"line ends of LF", "[S]\nk=v\n", "S", "k", "v"},
        {"line ends of CR", "[S]\rk=v\r", "S", "k", "v"},
        {"no last line end", "[S]\r\nk=v", "S", "k", "v"},
        {"end-of-text mark of old editors", "[S]\r\nk=v\x1a", "S", "k", "v"},
        {"UTF-8 mark at the start", "\xef\xbb\xbf[S]\r\nk=v\r\n", "S", "k", "v"},
        {"16-bit characters", std::string("\xff\xfe[\0S\0]\0\n\0k\0=\0v\0\r\0\n\0", 20), "S", "k", "v"},
        {"key is missing", "[S]\r\nk=v\r\n", "S", "j", "default"},
        {"section is missing", "[S]\r\nk=v\r\n", "T", "k", "default"},
        {"key is in another section only", "[S]\r\n[T]\r\nk=v\r\n", "S", "k", "default"},
        {"of two keys the first counts", "[S]\r\nk=1\r\nk=2\r\n", "S", "k", "1"},
        {"of two sections the first counts", "[S]\r\nk=1\r\n[T]\r\n[S]\r\nk=2\r\n", "S", "k", "1"},
        {"key without an equals sign", "[S]\r\nk\r\n", "S", "k", "default"},
        {"it hides a later one", "[S]\r\nk\r\nk=2\r\n", "S", "k", "default"},
        {"comment", "[S]\r\n;k=v\r\n", "S", "k", "default"},
        {"value with a comment behind it", "[S]\r\nk=v ; note\r\n", "S", "k", "v ; note"},
        {"lines before the first section have no name", "k=u\r\n[S]\r\nk=v\r\n", "", "k", "u"},
        {"value with an equals sign", "[S]\r\nk=a=b\r\n", "S", "k", "a=b"},
        {"section that is not closed is a key", "[S\r\nk=v\r\n", "S", "k", "default"},
        {"it does not end the section before it", "[S]\r\n[T\r\nk=v\r\n", "S", "k", "v"},
        {"rest of a section's line is passed over", "[S] ; note\r\nk=v\r\n", "S", "k", "v"},
        {"section goes to the last bracket", "[S] [x]\r\nk=v\r\n", "S] [x", "k", "v"},
        {"key in brackets is a section", "[S]\r\n[k]=v\r\nj=w\r\n", "k", "j", "w"},
        {"no name at all", "[S]\r\n=v\r\n", "S", "", "v"},
        {"value ends at a NUL", std::string("[S]\r\nk=a\0b\r\n", 12), "S", "k", "a"},
        {"empty value is a value", "[S]\r\nk=\r\n", "S", "k", ""},
        {"double quotes", "[S]\r\nk=\" v \"\r\n", "S", "k", " v "},
        {"single quotes", "[S]\r\nk=' v '\r\n", "S", "k", " v "},
        {"only one pair of quotes is taken off", "[S]\r\nk=\"'v'\"\r\n", "S", "k", "'v'"},
        {"quotes of two kinds", "[S]\r\nk=\"v'\r\n", "S", "k", "\"v'"},
        {"one quote alone", "[S]\r\nk=\"\r\n", "S", "k", "\""},
        {"nothing in quotes", "[S]\r\nk=\"\"\r\n", "S", "k", ""},
        {"quotes not around the whole value", "[S]\r\nk=\"a\" b\r\n", "S", "k", "\"a\" b"},
        {"as long as fits", "[S]\r\nk=" + std::string(254, 'x'), "S", "k", std::string(254, 'x')},
        {"longer than fits", "[S]\r\nk=" + std::string(300, 'x'), "S", "k", std::string(254, 'x')},
        {"no-break space is no blank", "[S]\r\nk=\xa0v\xa0\r\n", "S", "k", "\xa0v\xa0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const std::string path = this->freshName();
        this->put(path, c.text);
        EXPECT_EQ(this->platform().openProfile(path)->read(c.section, c.key, "default", kBufferSize),
                  c.expected);
    }
}

TYPED_TEST(ProfileFileTest, GivesTheDefaultForAMissingValue) {
    const struct {
        const char *why, *defaultValue;
        std::size_t bufferSize;
        std::string expected;
    } cases[] = {
        {"as it is", "64", kBufferSize, "64"},
        {"empty", "", kBufferSize, ""},
        {"trailing blanks go", "64  ", kBufferSize, "64"},
        {"leading blanks stay", "  64", kBufferSize, "  64"},
        {"other white space stays", "64\t", kBufferSize, "64\t"},
        {"quotes are taken off like those of a value", "'64'", kBufferSize, "64"},
        {"cut to the buffer", "abcdef", 4, "abc"},
        {"no room but for the end", "abcdef", 1, ""},
        {"no room at all", "abcdef", 0, ""},
    };
    const auto profile = this->platform().openProfile(this->freshName());
    for (const auto& c : cases)
        EXPECT_EQ(profile->read("S", "k", c.defaultValue, c.bufferSize), c.expected) << c.why;
}

TYPED_TEST(ProfileFileTest, ChangesOneValueAndKeepsTheRest) {
    const struct {
        const char* why;
        std::optional<std::string> before;
        std::string section, key, value, after;
    } cases[] = {
        {"value in its place", "[S]\r\nk=v\r\nj=1\r\n", "S", "k", "w", "[S]\r\nk=w\r\nj=1\r\n"},
        {"key keeps its spelling", "[S]\r\nKey=v\r\n", "s", "kEY", "w", "[S]\r\nKey=w\r\n"},
        {"blanks and quotes around the old value go", "[S]\r\n k = \"v\" \r\n", "S", "k", "w",
         "[S]\r\nk=w\r\n"},
        {"quotes are written as given", "[S]\r\nk=v\r\n", "S", "k", "\" w \"", "[S]\r\nk=\" w \"\r\n"},
        {"leading blanks of a value go", "[S]\r\nk=v\r\n", "S", "k", " w ", "[S]\r\nk=w \r\n"},
        {"empty value", "[S]\r\nk=v\r\n", "S", "k", "", "[S]\r\nk=\r\n"},
        {"key without an equals sign gets one", "[S]\r\nk\r\n", "S", "k", "w", "[S]\r\nk=w\r\n"},
        {"of two keys the first", "[S]\r\nk=1\r\nk=2\r\n", "S", "k", "w", "[S]\r\nk=w\r\nk=2\r\n"},
        {"new key at the section's end", "[S]\r\nk=v\r\n[T]\r\nj=1\r\n", "S", "n", "w",
         "[S]\r\nk=v\r\nn=w\r\n[T]\r\nj=1\r\n"},
        {"behind its comments too", "[S]\r\n;a\r\nk=v\r\n;b\r\n[T]\r\n", "S", "n", "w",
         "[S]\r\n;a\r\nk=v\r\n;b\r\nn=w\r\n[T]\r\n"},
        {"a comment is not the key", "[S]\r\n;k=v\r\n", "S", "k", "w", "[S]\r\n;k=v\r\nk=w\r\n"},
        {"in the first of two sections", "[S]\r\na=1\r\n[T]\r\n[S]\r\nk=3\r\n", "S", "k", "w",
         "[S]\r\na=1\r\nk=w\r\n[T]\r\n[S]\r\nk=3\r\n"},
        {"new section at the end", "[S]\r\nk=v\r\n", "N", "n", "w", "[S]\r\nk=v\r\n[N]\r\nn=w\r\n"},
        {"new section behind such a line", "[S]\r\nk=v", "N", "n", "w", "[S]\r\nk=v\r\n[N]\r\nn=w\r\n"},
        {"every line end becomes CR LF", "[S]\nk=v\nj=1\n", "S", "k", "w", "[S]\r\nk=w\r\nj=1\r\n"},
        {"no section at all yet", "x\r\n", "S", "k", "w", "x\r\n[S]\r\nk=w\r\n"},
        {"before the first section", "[S]\r\nk=v\r\n", "", "k", "w", "k=w\r\n[S]\r\nk=v\r\n"},
        {"UTF-8 mark stays in front", "\xef\xbb\xbf[S]\r\nk=v\r\n", "", "k", "w",
         "\xef\xbb\xbfk=w\r\n[S]\r\nk=v\r\n"},
        {"line that opens like a section", "[S]\r\n[x\r\nk=v\r\n", "S", "k", "w", "[S]\r\n[x\r\nk=w\r\n"},
        {"same value leaves every byte alone", "[S]\nk = v", "S", "k", "v", "[S]\nk = v"},
        {"missing file is made", {}, "S", "k", "w", "[S]\r\nk=w\r\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const std::string path = this->freshName();
        if (c.before)
            this->put(path, *c.before);
        const auto profile = this->platform().openProfile(path);
        profile->write(c.section, c.key, c.value);
        EXPECT_EQ(profile->commit(), SystemError::none);
        EXPECT_EQ(this->textOf(path), c.after);
    }
}

TYPED_TEST(ProfileFileTest, MakesManyChangesInTheOrderTheyWereGiven) {
    const std::string path = this->freshName();
    this->put(path, "[S]\r\nb=1\r\n");
    const auto profile = this->platform().openProfile(path);
    for (const char* section : {"T", "S", "R"})
        for (const char* key : {"d", "B", "a", "c"})
            profile->write(section, key, "2");
    profile->write("s", "C", "3");
    EXPECT_EQ(profile->commit(), SystemError::none);
    EXPECT_EQ(this->textOf(path), "[S]\r\nb=2\r\nd=2\r\na=2\r\nc=3\r\n"
                                  "[T]\r\nd=2\r\nB=2\r\na=2\r\nc=2\r\n"
                                  "[R]\r\nd=2\r\nB=2\r\na=2\r\nc=2\r\n");
}

TYPED_TEST(ProfileFileTest, ReadsAndKeepsWhatIsInTheFileAtTheTime) {
    const std::string path = this->freshName();
    const auto other = this->platform().openProfile(path);
    EXPECT_EQ(other->read("S", "k", "none", kBufferSize), "none");
    for (const char* value : {"1", "2"}) {
        const auto profile = this->platform().openProfile(path);
        EXPECT_EQ(profile->read("S", "other", "none", kBufferSize), "none");
        profile->write("S", "k", value);
        EXPECT_EQ(profile->commit(), SystemError::none);
        EXPECT_EQ(profile->read("S", "k", "none", kBufferSize), value);
        EXPECT_EQ(this->platform().openProfile(path)->read("S", "k", "none", kBufferSize), value);
    }
    other->write("S", "other", "3");
    EXPECT_EQ(other->commit(), SystemError::none);
    EXPECT_EQ(this->textOf(path), "[S]\r\nk=2\r\nother=3\r\n");
}

TYPED_TEST(ProfileFileTest, FindsTheFileInAnotherCase) {
    this->put(this->machine.file("VISTRELLITE.INI"), "[S]\r\nk=v\r\n");
    const auto profile = this->platform().openProfile(this->machine.file("VistrelLite.ini"));
    EXPECT_EQ(profile->read("S", "k", "none", kBufferSize), "v");
    profile->write("S", "k", "w");
    EXPECT_EQ(profile->commit(), SystemError::none);
    EXPECT_EQ(this->textOf(this->machine.file("VISTRELLITE.INI")), "[S]\r\nk=w\r\n");
    EXPECT_EQ(this->machine.fileCount(), 1u);
}

TYPED_TEST(ProfileFileTest, ReportsAMissingFolderOnce) {
    const auto nowhere = this->platform().openProfile(JoinPath(this->machine.file("none"), "a.ini"));
    nowhere->write("S", "k", "v");
    EXPECT_EQ(nowhere->commit(), SystemError::folderNotFound);
    EXPECT_EQ(nowhere->commit(), SystemError::none);
}

TYPED_TEST(ProfileFileTest, LeavesAReadOnlyFileAlone) {
    const std::string path = this->freshName();
    this->put(path, "[S]\r\nk=v\r\n");
    this->machine.protect(path);
    if (this->files().open(path, OpenMode::append))
        GTEST_SKIP() << "this user may write to read-only files";
    const auto readOnly = this->platform().openProfile(path);
    readOnly->write("S", "k", "w");
    EXPECT_EQ(readOnly->commit(), SystemError::accessDenied);
    EXPECT_EQ(this->textOf(path), "[S]\r\nk=v\r\n");
}

} // namespace
} // namespace qrtVistrelClasses4
