// The system's own functions are the measure of ours, for any inputs. `tests/automation/run.sh` runs the
// tests of code pages under several of them.
#include "TempFolder.h"
#include "TestHost.h"
#include "commands/PreviewText.h"
#include "frame/Conversions.h"
#include "platform/IniText.h"
#include "platform/LetterCase.h"
#include "platform/windows/WindowsCalendar.h"
#include <qrtVistrelClasses4/RecentFiles.h>
#include <qrtVistrelClasses4/RuntimeError.h>
#include <qrtVistrelClasses4/SignList.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <sstream>

namespace qrtVistrelClasses4 {
namespace {

/// The same in every run.
class RandomInputs {
public:
    /// As many as `QRT_RANDOM_INPUTS` in the environment says.
    static int count() {
        const char* const given = std::getenv("QRT_RANDOM_INPUTS");
        return given ? std::atoi(given) : 3000;
    }
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    unsigned long long bits() { return random_(); }
    /// Up to `most` of the pieces, joined.
    std::string text(std::initializer_list<std::string_view> pieces, int most) {
        std::string result;
        for (int left = below(most + 1); left > 0; --left)
            result += pieces.begin()[below(static_cast<int>(pieces.size()))];
        return result;
    }

private:
    std::mt19937_64 random_{20010203};
};

std::wstring wide(const std::string& text) { return {text.begin(), text.end()}; }

/// A value, and 0 or the number of the error that there is instead of it.
using Outcome = std::pair<double, int>;

template <class Convert, class Input>
Outcome ours(Convert convert, const Input& input) {
    try {
        return {convert(input), 0};
    } catch (const RuntimeError& error) {
        return {0, error.number()};
    }
}

template <class Value, class Convert>
Outcome systems(Convert convert) {
    Value value{};
    const HRESULT result = convert(&value);
    if (result == S_OK)
        return {value, 0};
    return {0, result == DISP_E_OVERFLOW ? 6 : result == DISP_E_TYPEMISMATCH ? 13 : static_cast<int>(result)};
}

/// Leaves out what no file contains, although the system understands it: currency, negative money, thousands
/// and other bases, a sign after the number, and several signs, or blanks after a sign, before it. Also
/// leaves out exponents of many digits, which the system takes for too large even if they are negative.
std::string randomNumberText(RandomInputs& random) {
    const std::string_view sign = random.below(2) == 0 ? "" : random.below(2) == 0 ? "-" : "+";
    std::string text = random.text({" ", "  ", "\t"}, 1).append(sign);
    text += random.text({"0", "1", "2", "5", "9", "49", "50", "32767", "2147483647", "000", ".", ".5", "1 2",
                         "x", "True", "false"},
                        5);
    if (random.below(3) == 0)
        text += random.text({"e3", "E-2", "e30", "E+7", "e-20", "e", "E ", "e-", "1e1"}, 1);
    return text + random.text({" "}, 2);
}

TEST(SystemConversions, ReadRandomTextsAsWeDo) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        const std::string text = randomNumberText(random);
        SCOPED_TRACE("\"" + text + "\"");
        const auto by = [&](auto convert) {
            return [=](auto* value) { return convert(wide(text).data(), LOCALE_INVARIANT, 0, value); };
        };
        const auto [number, error] = ours(TextToDouble, text);
        const auto [systemsNumber, systemsError] = systems<double>(by(VarR8FromStr));
        EXPECT_EQ(error, systemsError);
        EXPECT_NEAR(number, systemsNumber, 1e-14 * std::abs(number)) << "the system rounds more than once";
        EXPECT_EQ(ours([](const std::string& flag) { return TextToBoolean(flag) ? -1 : 0; }, text),
                  systems<VARIANT_BOOL>(by(VarBoolFromStr)));
        if (number != 0 && std::abs(number) < 0.5)
            continue; // Wine makes some of these 1
        EXPECT_EQ(ours(TextToInt16, text), systems<SHORT>(by(VarI2FromStr)));
        EXPECT_EQ(ours(TextToInt32, text), systems<LONG>(by(VarI4FromStr)));
    }
}

/// Any bits, or a decimal number of few digits, or one close to a half.
double randomNumber(RandomInputs& random) {
    const double numbers[] = {std::bit_cast<double>(random.bits()), (random.below(400001) - 200000) / 2.0,
                              std::ldexp(random.below(1000000), random.below(80) - 40),
                              (random.below(2000001) - 1000000) * std::pow(10.0, random.below(24) - 16)};
    return numbers[random.below(4)];
}

TEST(SystemConversions, WriteAndRoundRandomNumbersAsWeDo) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        const double number = randomNumber(random);
        if (!std::isfinite(number))
            continue;
        SCOPED_TRACE(testing::PrintToString(number));
        const auto by = [&](auto convert) { return [=](auto* value) { return convert(number, value); }; };
        EXPECT_EQ(ours(RoundToInt16, number), systems<SHORT>(by(VarI2FromR8)));
        EXPECT_EQ(ours(RoundToInt32, number), systems<LONG>(by(VarI4FromR8)));
        BSTR text = nullptr;
        ASSERT_EQ(VarBstrFromR8(number, LOCALE_INVARIANT, 0, &text), S_OK);
        EXPECT_EQ(wide(NumberToText(number)), std::wstring(text, SysStringLen(text)));
        SysFreeString(text);
    }
}

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
            EXPECT_TRUE(::WritePrivateProfileStringA(section.c_str(), key.c_str(), change.value->c_str(),
                                                     path.c_str()));
            std::stringstream systems;
            systems << std::ifstream(path, std::ios::binary).rdbuf();
            EXPECT_EQ(asWineWrites(text), asWineWrites(systems.str())) << *change.value << "|";
        }
    }
}

TEST(SystemCalendar, HasTheNamesOfALanguage) {
    const CalendarNames english = WindowsCalendarNames(0x409), german = WindowsCalendarNames(0x407);
    EXPECT_EQ(english.months, EnglishCalendarNames().months);
    EXPECT_EQ(english.shortMonths, EnglishCalendarNames().shortMonths);
    EXPECT_EQ(english.weekdays, EnglishCalendarNames().weekdays);
    EXPECT_EQ(english.morning + english.afternoon + english.dateSeparator + english.timeSeparator, "AMPM/:");
    EXPECT_EQ(german.months[2] + german.shortMonths[4] + german.weekdays[0] + german.dateSeparator,
              "M\xe4rzMaiSonntag.");
}

std::string upperBySystem(std::string text) {
    ::CharUpperA(text.data());
    return text;
}

TEST(CodePage, LettersAreFoldedAsTheSystemDoes) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        std::string text(static_cast<std::size_t>(random.below(2) * 300), 'x');
        for (int bytes = random.below(8); bytes > 0; --bytes)
            text += static_cast<char>(1 + random.below(255));
        std::string other = text;
        ::CharLowerA(other.data());
        if (random.below(2) && !text.empty())
            other.back() = static_cast<char>(1 + random.below(255));
        SCOPED_TRACE(testing::PrintToString(text) + testing::PrintToString(other));
        EXPECT_EQ(AnsiUpperCase(text), upperBySystem(text));
        EXPECT_EQ(EqualIgnoringAnsiCase(text, other), upperBySystem(text) == upperBySystem(other));
    }
}

TEST(CodePage, DecidesWhichNamesAreOne) {
    const char* const page = std::getenv("QRT_CODE_PAGE");
    ASSERT_EQ(std::to_string(::GetACP()), page ? page : "1252");
    const struct {
        unsigned page;
        const char *name, *same, *other;
    } cases[] = {{1250, "pi\xB9\xFF", "PI\xA5\xFF", "pi\xB9\x9F"},
                 {1251, "\xB8\xFF", "\xA8\xDF", "\xB8\x9F"},
                 {1252, "\xFF\xF7", "\x9F\xF7", "\xFF\xD7"},
                 {1254, "\xF0\xFD", "\xD0\xFD", "\xF0\xDD"},
                 {932, "\x83\x61\x82\x81g", "\x83\x61\x82\x60G", "\x83\x41\x82\x60G"}};
    for (const auto& row : cases) {
        if (row.page != ::GetACP())
            continue;
        SignList signs;
        EXPECT_TRUE(signs.add(row.name) && !signs.add(row.same) && signs.add(row.other));
        RecentFiles files;
        files.putFirst(row.name);
        EXPECT_TRUE(!files.remove(row.other) && files.remove(row.same));
    }
}

TEST(CodePage, HasTheCapitalsOfMonthsAndWeekdays) {
    TestHost host;
    host.machine.calendar = WindowsCalendarNames(LOCALE_USER_DEFAULT);
    for (int month = 1; month <= 12; ++month) {
        host.machine.time = {2024, month, 11, 0, 0, 0, month % 7};
        EXPECT_EQ(PreviewText("|CDDDDDDD_MMMMMMMM_DD,_YYY||CM_D|", 0),
                  upperBySystem(PreviewText("|dddddddd_mmmmmmmm_dd,_yyy||mm_d|", 0)));
    }
}

} // namespace
} // namespace qrtVistrelClasses4
