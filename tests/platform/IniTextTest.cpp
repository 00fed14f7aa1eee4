#include "platform/IniText.h"
#include "platform/memory/MemoryPlatform.h"

#include <gtest/gtest.h>

#include <array>

namespace qrtVistrelClasses4 {
namespace {

using namespace std::string_view_literals;

std::string changed(std::string_view text, const IniChange& change) {
    return ApplyIniChanges(text, std::array{change}).value_or(std::string(text));
}

TEST(IniText, KeepsBlankLinesAndIndentationOfOtherLines) {
    EXPECT_EQ(changed("; head\r\n\r\n  [S]  \r\n\r\n  k = v  \r\n\tj=1\r\n\r\n\r\n[T]\r\n", {"S", "k", "w"}),
              "; head\r\n\r\n  [S]  \r\n\r\nk=w\r\n\tj=1\r\n\r\n\r\n[T]\r\n");
}

TEST(IniText, PutsANewKeyBeforeTheBlankLinesThatPartTheSections) {
    EXPECT_EQ(changed("[S]\r\nk=v\r\n\r\n \t\r\n[T]\r\n", {"S", "n", "w"}),
              "[S]\r\nk=v\r\nn=w\r\n\r\n \t\r\n[T]\r\n");
    EXPECT_EQ(changed("[S]\r\n\r\n\r\n", {"S", "n", "w"}), "[S]\r\nn=w\r\n\r\n\r\n");
}

TEST(IniText, NamesAndValuesOfAChangeEndAtTheirFirstNul) {
    const std::string cut("x\0y", 3);
    EXPECT_EQ(changed("", {cut, cut, cut}), "[x]\r\nx=x\r\n");
}

TEST(IniText, LeavesAFileOf16BitCharactersAsItIs) {
    MemoryPlatform machine;
    const std::string path = JoinPath(machine.library, "wide.ini");
    const std::string text("\xff\xfe[\0S\0]\0", 8);
    machine.files().put(path, text);
    const auto profile = machine.openProfile(path);
    profile->write("S", "k", "v");
    EXPECT_NE(profile->commit(), SystemError::none);
    EXPECT_EQ(machine.files().content(path), text);
}

TEST(IniText, ReadsWhatAnyChangeWroteWhereverTheOldTextWasCutShort) {
    const std::string_view text = "\xef\xbb\xbf; note\r\n[S]\r\n\r\nk=\"v\"\r\nj\r\n[T\r\n\x1a[S]\nk=2\0\r"sv;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string after = changed(text.substr(0, length), {"S", "k", "w"});
        EXPECT_EQ(IniIndex(after).find("s", "K"), "w") << length;
    }
}

TEST(IniText, TakesTimeInProportionToTheText) {
    // Any of these takes minutes when one line costs as much as the whole text.
    constexpr std::size_t size = 1 << 20;
    for (const std::string_view piece :
         {"[", "]", "=", "\r", "\n", " ", "[S]\r\n", "k=v\r\n", "[]\r\n\r\n", "\x1a"}) {
        std::string text;
        while (text.size() < size)
            text += piece;
        const std::string after = changed(text, {"S", "new", "w"});
        EXPECT_EQ(IniIndex(after).find("S", "new"), "w") << piece;
    }
    std::vector<IniChange> changes;
    for (int i = 0; i < 100'000; ++i)
        changes.push_back({std::to_string(i % 1000), std::to_string(i), "v"});
    const std::string after = ApplyIniChanges("", changes).value();
    EXPECT_EQ(IniIndex(after).find("999", "99999"), "v");
    EXPECT_EQ(ApplyIniChanges(after, changes), std::nullopt);
}

} // namespace
} // namespace qrtVistrelClasses4
