// Names of files on Windows, in a program and in the programs of others.
#include "platform/windows/WindowsNames.h"
#include "Machines.h"
#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/ReplacementFile.h"
#include "platform/Utf8.h"
#include "platform/windows/CommandLine.h"

#include <gmock/gmock.h>

#include <random>

#include <windows.h>

#include <shellapi.h>

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
    RegistryStore& registry = platform().registry();
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

TEST(CommandLine, IsTakenApartAsTheSystemDoes) {
    std::mt19937 random(20010203);
    const wchar_t* const pieces[] = {L"a", L"*", L" ", L"\t", L"\"", L"\"", L"\\", L"\\", L"\u0434"};
    for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
        std::wstring line = L"vistrel.exe ";
        for (auto left = random() % 12; left > 0; --left)
            line += pieces[random() % std::size(pieces)];
        int count = 0;
        wchar_t** const words = ::CommandLineToArgvW(line.c_str(), &count);
        std::vector<std::wstring> ours;
        for (const CommandLineWord& word : WordsOfCommandLine(line))
            ours.push_back(word.text);
        EXPECT_EQ(ours, std::vector<std::wstring>(words + 1, words + count)) << Utf8FromWide(line);
        ::LocalFree(words);
    }
    const auto words = WordsOfCommandLine(L"\"C:\\a b\\vistrel\" a\\*.PL2 \"b\\*.PL2\" \"\"");
    ASSERT_EQ(words.size(), 3u);
    EXPECT_FALSE(words[0].isQuoted);
    EXPECT_TRUE(words[1].isQuoted && words[2].isQuoted);
}

} // namespace
} // namespace qrtVistrelClasses4
