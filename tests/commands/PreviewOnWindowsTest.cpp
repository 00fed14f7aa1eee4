// The system's own formatting of dates is the measure of ours.
#include "RandomInputs.h"
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

TEST(SystemDateTexts, AgreeWithOursAtAnyTime) {
    constexpr const char* patterns[] = {"hh:mm AMPM",         "hmm",    "mm/dd/yy", "mmm dd yyyy",
                                        "dddd mmmm dd, yyyy", "mmm dd", "dddd"};
    RandomInputs random;
    for (const LCID locale : {0x409u, 0x407u}) {
        const CalendarNames names = WindowsCalendarNames(locale);
        for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
            LocalTime time{1900 + random.below(200), 1 + random.below(12), 1 + random.below(28),
                           random.below(24), random.below(60)};
            constexpr int monthOffsets[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
            const int year = time.year - (time.month < 3 ? 1 : 0);
            time.weekday =
                (year + year / 4 - year / 100 + year / 400 + monthOffsets[time.month - 1] + time.day) % 7;
            const char* const pattern = patterns[random.below(std::size(patterns))];
            EXPECT_EQ(FormatDate(pattern, time, names), formattedBySystem(pattern, time, locale)) << pattern;
        }
    }
}

} // namespace
} // namespace qrtVistrelClasses4
