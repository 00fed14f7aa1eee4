// Dates and times by format patterns.
#pragma once

#include "platform/Platform.h"

#include <chrono>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `time` by a pattern of "mmmm", "mmm", "mm", "dddd", "dd", "yyyy", "yy", "hh", "h" and "AMPM", with the
/// user's names, and "/" and ":", which become the user's separators. "mm" after an hour is minutes. With
/// "AMPM" hours run from 1 to 12. Other characters are copied.
std::string FormatDate(std::string_view pattern, const LocalTime& time, const CalendarNames& names);

/// The date and the time of a moment in any time zone. Years are at most 9999.
LocalTime LocalTimeOf(std::chrono::local_seconds moment);

} // namespace qrtVistrelClasses4
