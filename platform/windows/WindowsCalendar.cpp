#include "platform/windows/WindowsCalendar.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

std::string textOf(LCID locale, LCTYPE type) {
    std::array<char, 100> text{}; // the system's own limit is 80
    ::GetLocaleInfoA(locale, type | LOCALE_USE_CP_ACP, text.data(), static_cast<int>(text.size()));
    return text.data();
}

template <std::size_t size>
void fill(std::array<std::string, size>& names, LCID locale, LCTYPE first) {
    for (LCTYPE offset = 0; std::string & name : names)
        name = textOf(locale, first + offset++);
}

} // namespace

CalendarNames WindowsCalendarNames(LCID locale) {
    CalendarNames names;
    fill(names.months, locale, LOCALE_SMONTHNAME1);
    fill(names.shortMonths, locale, LOCALE_SABBREVMONTHNAME1);
    fill(names.weekdays, locale, LOCALE_SDAYNAME1); // from Monday
    std::rotate(names.weekdays.begin(), names.weekdays.end() - 1, names.weekdays.end());
    names.morning = textOf(locale, LOCALE_S1159);
    names.afternoon = textOf(locale, LOCALE_S2359);
    names.dateSeparator = textOf(locale, LOCALE_SDATE);
    names.timeSeparator = textOf(locale, LOCALE_STIME);
    return names;
}

} // namespace qrtVistrelClasses4
