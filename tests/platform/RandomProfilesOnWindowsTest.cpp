// The system's own INI files are the measure of ours, for any texts.
#include "RandomInputs.h"
#include "TempFolder.h"
#include "platform/IniText.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstring>
#include <fstream>
#include <sstream>

namespace qrtVistrelClasses4 {
namespace {

/// How Wine rewrites the lines that it does not change: without blanks around names and values, without
/// anything after a section, and without blank lines and lines without a name. Windows leaves them alone, as
/// we do.
std::string asWineWrites(std::string text) {
    std::erase_if(text, [](char character) { return std::strchr(" \t\v\f\r\x1a", character); });
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        if (const std::size_t close = line.rfind(']'); line.starts_with('[') && close != line.npos)
            line.resize(close + 1);
        result += line.empty() || line.starts_with('=') ? "" : line + "\n";
    }
    return result;
}

TEST(SystemProfiles, ReadAndChangeRandomTextsAsOursDo) {
    constexpr int inputsOfAFile = 10, readsOfAFile = 8;
    const TempFolder folder;
    RandomInputs random;
    const auto randomName = [&] { return random.text({"S", "s", "k", "K", "j", " ", "\xe4", ";"}, 2); };
    std::string text;
    for (int input = 0; input < RandomInputs::count() && !testing::Test::HasFailure(); ++input) {
        // A file that the system has not seen yet, as it remembers what it read.
        const std::string path = folder.file(std::to_string(input / inputsOfAFile) + ".ini");
        if (input % inputsOfAFile == 0) {
            // clang-format off
            text = random.text({
                "[S]", "[s", "[ K ]", "[k] x]", "]", "S", "k", "K", "j=", "=", "v", " ", "\t", "\"", "'", ";",
                "\r\n", "\r\n", "\r\nk=", "\n", "\r", "\x1a", "\xe4", "\xa0"}, 30);
            // clang-format on
            std::ofstream(path, std::ios::binary) << text;
        }
        SCOPED_TRACE(testing::PrintToString(text));
        const std::string section = randomName(), key = randomName();
        SCOPED_TRACE(testing::Message() << "[" << section << "] " << key);
        if (input % inputsOfAFile < readsOfAFile) {
            std::string buffer(static_cast<std::size_t>(random.below(4) == 0 ? random.below(5) + 1 : 255),
                               '\0');
            const std::string ours =
                ProfileString(IniValues(text).find(section, key), "none ", buffer.size());
            buffer.resize(::GetPrivateProfileStringA(section.c_str(), key.c_str(), "none ", buffer.data(),
                                                     static_cast<DWORD>(buffer.size()), path.c_str()));
            EXPECT_EQ(ours, buffer);
        } else {
            const IniChange change{section, key,
                                   random.text({"v", " ", "\"", "'", "=", ";", "\t", "\xe4"}, 4)};
            text = ApplyIniChanges(text, std::span(&change, 1)).value_or(text);
            EXPECT_TRUE(::WritePrivateProfileStringA(section.c_str(), key.c_str(), change.value.c_str(),
                                                     path.c_str()));
            std::stringstream systems;
            systems << std::ifstream(path, std::ios::binary).rdbuf();
            EXPECT_EQ(asWineWrites(text), asWineWrites(systems.str())) << change.value << "|";
        }
    }
}

} // namespace
} // namespace qrtVistrelClasses4
