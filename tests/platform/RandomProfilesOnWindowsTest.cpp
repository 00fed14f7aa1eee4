// The system's own INI files are the measure of ours, for any texts.
#include "RandomInputs.h"
#include "TempFolder.h"
#include "platform/IniText.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kReadsOfAFile = 8;
constexpr int kWritesOfAFile = 2;

std::string randomName(RandomInputs& random) {
    return random.text({"S", "s", "k", "K", "j", " ", "\xe4", ";"}, 2);
}

std::string randomText(RandomInputs& random) {
    return random.text({"[S]",  "[s",   "[ K ]",  "[k] x]", "]",  "S",    "k",    "K",
                        "j=",   "=",    "v",      " ",      "\t", "\"",   "'",    ";",
                        "\r\n", "\r\n", "\r\nk=", "\n",     "\r", "\x1a", "\xe4", "\xa0"},
                       30);
}

/// A file that the system has not seen yet, as it remembers what it read.
class SystemProfile {
public:
    explicit SystemProfile(const std::string& path, const std::string& text) : path_(path) {
        std::ofstream(path, std::ios::binary) << text;
    }
    ~SystemProfile() { ::DeleteFileA(path_.c_str()); }
    SystemProfile(const SystemProfile&) = delete;
    SystemProfile& operator=(const SystemProfile&) = delete;

    std::string read(const std::string& section, const std::string& key, DWORD bufferSize) const {
        std::string buffer(bufferSize, '\0');
        buffer.resize(::GetPrivateProfileStringA(section.c_str(), key.c_str(), "none ", buffer.data(),
                                                 bufferSize, path_.c_str()));
        return buffer;
    }
    void write(const IniChange& change) const {
        EXPECT_TRUE(::WritePrivateProfileStringA(change.section.c_str(), change.key.c_str(),
                                                 change.value.c_str(), path_.c_str()));
    }
    std::string text() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::string path_;
};

std::string trimmed(const std::string& text) {
    constexpr std::string_view blanks = " \t\v\f\r\n\x1a";
    const std::size_t start = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

/// Lines as Wine writes those that it does not change: without blanks around names and values, without what
/// stands behind a section; blank ones, and one without a name behind another, not at all. Windows leaves
/// them alone, as we do.
std::string asWineWrites(const std::string& text) {
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        line = trimmed(line);
        const std::size_t close = line.rfind(']');
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && close != line.npos)
            line = "[" + trimmed(line.substr(1, close - 1)) + "]";
        else if (equals != line.npos)
            line = trimmed(line.substr(0, equals)) + "=" + trimmed(line.substr(equals + 1));
        result += line.empty() || equals == 0 ? "" : line + "\r\n";
    }
    return result;
}

TEST(SystemProfiles, ReadAndChangeRandomTextsAsOursDo) {
    const TempFolder folder;
    RandomInputs random;
    int inputs = 0;
    for (int file = 0; inputs < RandomInputs::count() && !testing::Test::HasFailure(); ++file) {
        std::string text = randomText(random);
        SCOPED_TRACE(testing::PrintToString(text));
        const SystemProfile profile(folder.file(std::to_string(file) + ".ini"), text);
        for (int read = 0; read < kReadsOfAFile; ++read, ++inputs) {
            const std::string section = randomName(random), key = randomName(random);
            const auto bufferSize = static_cast<DWORD>(random.below(4) == 0 ? random.below(5) + 1 : 255);
            EXPECT_EQ(ProfileString(IniIndex(text).find(section, key), "none ", bufferSize),
                      profile.read(section, key, bufferSize))
                << "[" << section << "] " << key << ", " << bufferSize;
        }
        for (int write = 0; write < kWritesOfAFile; ++write, ++inputs) {
            const IniChange change{randomName(random), randomName(random),
                                   random.text({"v", " ", "\"", "'", "=", ";", "\t", "\xe4"}, 4)};
            profile.write(change);
            text = ApplyIniChanges(text, std::span(&change, 1)).value_or(text);
            EXPECT_EQ(asWineWrites(text), asWineWrites(profile.text()))
                << "[" << change.section << "] " << change.key << "=" << change.value << "|";
        }
    }
}

} // namespace
} // namespace qrtVistrelClasses4
