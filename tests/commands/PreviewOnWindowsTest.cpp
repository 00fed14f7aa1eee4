// The system's own formatting of dates is the measure of ours.
#include "RandomInputs.h"
#include "commands/DateText.h"
#include "platform/windows/WindowsCalendar.h"

#include <gtest/gtest.h>

#include <oleauto.h>

namespace qrtVistrelClasses4 {
namespace {

std::string formattedBySystem(std::string_view pattern, double moment, LCID locale) {
    VARIANT date{};
    date.vt = VT_DATE;
    date.date = moment;
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

TEST(SystemDateTexts, AgreeWithOursAtAnyTime) {
    constexpr const char* patterns[] = {"hh:mm AMPM",         "hmm",    "mm/dd/yy", "mmm dd yyyy",
                                        "dddd mmmm dd, yyyy", "mmm dd", "dddd"};
    RandomInputs random;
    for (const LCID locale : {0x409u, 0x407u}) {
        const CalendarNames names = WindowsCalendarNames(locale);
        for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
            const double moment = random.below(73'000) + random.below(24 * 60) / (24 * 60.0) + 1e-5;
            SYSTEMTIME parts{};
            ASSERT_TRUE(::VariantTimeToSystemTime(moment, &parts));
            const LocalTime time{parts.wYear,   parts.wMonth,  parts.wDay,      parts.wHour,
                                 parts.wMinute, parts.wSecond, parts.wDayOfWeek};
            const char* const pattern = patterns[random.below(std::size(patterns))];
            EXPECT_EQ(FormatDate(pattern, time, names), formattedBySystem(pattern, moment, locale))
                << pattern;
        }
    }
}

} // namespace
} // namespace qrtVistrelClasses4
