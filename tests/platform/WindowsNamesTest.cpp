// Names of files on Windows, in a program and in the programs of others.
#include "platform/windows/WindowsNames.h"
#include "Machines.h"
#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/ReplacementFile.h"
#include "platform/windows/CommandLine.h"
#include "platform/windows/WindowsRegistryStore.h"

#include <qrtVistrelClasses4/Utf8.h>

#include <gmock/gmock.h>

#include <windows.h>

namespace qrtVistrelClasses4 {
namespace {

class WindowsNames : public OnEveryMachine<SystemMachine> {
protected:
    WindowsNames() { SetNamesUtf8(true); }
    ~WindowsNames() override { SetNamesUtf8(false); }
    /// Without the standard library, which takes all texts for those of the code page.
    std::string at(const std::string& name) { return JoinPath(platform().libraryFolder(), name); }
};

TEST_F(WindowsNames, OfAProgramAreInUtf8AndReachEveryFile) {
    const std::string names[] = {"\u0434\u0430.txt", "\u65e5\u672c.txt", "a\u0308.txt", "\U0001f600.txt"};
    for (const std::string& name : names) {
        ReplacementFile file(files(), at(name));
        (void)file.write(name);
        EXPECT_EQ(file.commit(), SystemError::none);
        EXPECT_EQ(textOf(at(name)), name);
    }
    for (const std::string& name : names)
        EXPECT_THAT(files().namesIn(platform().libraryFolder()), testing::Contains(name));
    EXPECT_EQ(files().existingName(at("\u0414\u0410.TXT")), at("\u0434\u0430.txt"));
    EXPECT_EQ(files().kindOf(at("??.txt")), EntryKind::missing) << "which the code page makes of it";
}

TEST_F(WindowsNames, OfPlayfilesAreFoundInTheCodePageOfOtherPrograms) {
    const std::string ansi = AnsiFromUtf8("caf\u00e9").value();
    put(at("caf\u00e9"), "text");
    EXPECT_EQ(textOf(at(ansi)), "text");
    EXPECT_EQ(NameForPlayfile(at("caf\u00e9")), at(ansi));
    SetNamesUtf8(false);
    EXPECT_EQ(textOf(at(ansi)), "text");
    EXPECT_THAT(files().namesIn(platform().libraryFolder()), testing::Contains(ansi));
}

TEST_F(WindowsNames, InTheRegistryAreTheSameToOtherPrograms) {
    const std::string utf8 = "h\u00f6\u20ac\\a", ansi = AnsiFromUtf8(utf8).value(), cyrillic = "\u0434\u0430";
    const RegistryKey key{RegistryHive::currentUser, "Software\\qrtVistrelClasses4 names test"};
    WindowsRegistryStore registry;
    for (const std::string& name : {cyrillic, utf8}) {
        EXPECT_EQ(registry.writeString(key, "v", name), SystemError::none);
        EXPECT_EQ(registry.readString(key, "v").value(), name);
    }
    SetNamesUtf8(false);
    EXPECT_EQ(registry.readString(key, "v").value(), ansi);
    EXPECT_EQ(registry.writeString(key, "v", ansi), SystemError::none);
    SetNamesUtf8(true);
    EXPECT_EQ(registry.readString(key, "v").value(), utf8);
    EXPECT_EQ(registry.deleteKey(key), SystemError::none);
}

TEST_F(WindowsNames, MayBeLong) {
    std::vector<std::string> made{at("")};
    for (int depth = 0; depth < 3; ++depth) {
        made.push_back(JoinPath(made.back(), std::string(100, 'x')));
        ASSERT_EQ(files().createFolder(made.back()), SystemError::none);
    }
    const std::string& folder = made.back();
    put(JoinPath(folder, "a"), "text");
    EXPECT_EQ(textOf(JoinPath(folder, "a")), "text");
    EXPECT_THAT(files().namesIn(folder), testing::UnorderedElementsAre(".", "..", "a"));
    EXPECT_EQ(files().remove(JoinPath(folder, "a")), SystemError::none);
    for (; made.size() > 1; made.pop_back())
        EXPECT_TRUE(::RemoveDirectoryW(WideName(made.back()).c_str()));
}

TEST_F(WindowsNames, OfDevicesAreNoFiles) {
    for (const char* name : {"NUL", "nul", "CON", "COM1", R"(\\.\NUL)"}) {
        EXPECT_NE(files().kindOf(name), EntryKind::file) << name;
        EXPECT_EQ(files().read(name).error(), SystemError::accessDenied) << name;
        EXPECT_EQ(files().openToRead(name).error(), SystemError::accessDenied) << name;
        EXPECT_EQ(ReplacementFile(files(), name).error(), SystemError::accessDenied) << name;
    }
    for (const char* name : {"NULL", "console.txt", "a.NUL"})
        EXPECT_FALSE(IsDeviceName(file(name))) << name;
}

TEST_F(WindowsNames, WithDrivesAndServersHaveTheirOwnFolders) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(C:\a\b)", R"(C:\a)"},
        {R"(C:\a)", R"(C:\)"},
        {"C:a", "C:"},
        {R"(\a)", "\\"},
        {"a/b", "a"},
        {"a", "."},
        {R"(\\host\share\a)", R"(\\host\share\)"},
        {"//host/share/a/b", "//host/share/a"},
        {R"(\\host\share)", R"(\\host\share)"},
        {R"(\\?\C:\a)", R"(\\?\C:\)"},
        {R"(\\?\UNC\host\share\a\b)", R"(\\?\UNC\host\share\a)"},
        {R"(\\?\UNC\host\share\a)", R"(\\?\UNC\host\share\)"}};
    for (const auto& [path, folder] : cases)
        EXPECT_EQ(FolderOf(path), folder) << path;
    for (const char* root : {R"(C:\)", R"(\\host\share\)", "\\"})
        EXPECT_EQ(WithoutTrailingSeparators(root), root);
    EXPECT_EQ(WithoutTrailingSeparators("C:\\a\\/"), "C:\\a");
    const std::string drive = file("").substr(0, 2), name = "qrt-vistrel-relative";
    std::filesystem::current_path(machine.file(""));
    put(drive + name, "text");
    EXPECT_EQ(textOf(file(name)), "text");
    EXPECT_EQ(textOf(file("").substr(2) + name), "text") << "from the root of the current drive";
    EXPECT_EQ(textOf("\\\\?\\" + file(name)), "text");
    std::filesystem::current_path(std::filesystem::temp_directory_path());
}

TEST(CommandLine, IsTakenApartAsCurrentCompilersDo) {
    const std::pair<const wchar_t*, std::vector<std::wstring>> cases[] = {
        {LR"(say "say ""hi"" now" x)", {L"say", LR"(say "hi" now)", L"x"}},
        {LR"("a b" c"d e"f)", {L"a b", L"cd ef"}},
        {LR"("" a""b """ """ c)", {L"", L"ab", L"\" \"", L"c"}},
        {LR"(a\\b \"c "\"d\" e" "f\\" g\\\"h)", {LR"(a\\b)", L"\"c", L"\"d\" e", L"f\\", LR"(g\"h)"}},
        {L"a\\ b\t\u0434\\\\  \"c d", {L"a\\", L"b", L"\u0434\\\\", L"c d"}},
        {L" ", {}}};
    for (const auto& [line, expected] : cases)
        for (const std::wstring program : {L"vistrel ", L"\"C:\\a b\"\\vistrel.exe "}) {
            std::vector<std::wstring> words;
            for (const CommandLineWord& word : WordsOfCommandLine(program + line))
                words.push_back(word.text);
            EXPECT_EQ(words, expected) << Utf8FromWide(line);
        }
    const auto words = WordsOfCommandLine(LR"(vistrel "My Signs"\*.PL2 "b\*.PL2" a"?"*)");
    ASSERT_EQ(words.size(), 3u);
    EXPECT_FALSE(words[0].hasQuotedWildcard);
    EXPECT_TRUE(words[1].hasQuotedWildcard && words[2].hasQuotedWildcard);
}

} // namespace
} // namespace qrtVistrelClasses4
