// The system's own formatting of dates is the measure of ours.
#include "commands/DateText.h"
#include "platform/windows/WindowsCalendar.h"

#include <gtest/gtest.h>

#include <oleauto.h>

namespace qrtVistrelClasses4 {
namespace {

std::string formattedBySystem(std::string_view pattern, const LocalTime& time, LCID locale) {
    const auto word = [](int number) { return static_cast<WORD>(number); };
    SYSTEMTIME parts{word(time.year), word(time.month),  0, word(time.day),
                     word(time.hour), word(time.minute), 0, 0};
    VARIANT date{};
    date.vt = VT_DATE;
    EXPECT_TRUE(::SystemTimeToVariantTime(&parts, &date.date));
    std::wstring format(pattern.begin(), pattern.end());
    BYTE tokens[256];
    EXPECT_EQ(::VarTokenizeFormatString(format.data(), tokens, sizeof tokens, 1, 1, locale, nullptr), S_OK);
    BSTR text = nullptr;
    EXPECT_EQ(::VarFormatFromTokens(&date, format.data(), tokens, 0, &text, locale), S_OK);
    std::string result;
    for (const wchar_t character : std::wstring_view(text, ::SysStringLen(text)))
        result += static_cast<char>(character); // all that these locales use are bytes of that number
    ::SysFreeString(text);
    return result;
}

TEST(SystemDateTexts, AgreeWithOurs) {
    EXPECT_EQ(WindowsCalendarNames(0x407).months[2], "M\344rz");
    const LocalTime times[] = {{2024, 3, 5, 9, 5, 0, 2},
                               {2000, 1, 1, 0, 0, 0, 6},
                               {2009, 12, 31, 12, 0, 0, 4},
                               {1999, 5, 30, 23, 59, 0, 0},
                               {2024, 10, 11, 0, 59, 0, 5}};
    for (const LCID locale : {0x409u, 0x407u})
        for (const char* pattern :
             {"hh:mm AMPM", "hmm", "mm/dd/yy", "mmm dd yyyy", "dddd mmmm dd, yyyy", "mmm dd", "dddd"})
            for (const LocalTime& time : times)
                EXPECT_EQ(FormatDate(pattern, time, WindowsCalendarNames(locale)),
                          formattedBySystem(pattern, time, locale));
}

} // namespace
} // namespace qrtVistrelClasses4
