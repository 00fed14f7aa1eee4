// The names of days and months in the system's locales.
#pragma once

#include "platform/Platform.h"

namespace qrtVistrelClasses4 {

/// The names in Windows-1252. They are all English if that code page lacks a character of one of them, or if
/// the system does not know the encoding: a date never mixes two languages. Separators are left to the
/// caller.
CalendarNames AnsiCalendarNames(const CalendarNames& names, const char* encoding);

/// The names of the locale `name`, as `AnsiCalendarNames` gives them, with the locale's separators. An empty
/// name means the user's locale, an unknown one English.
CalendarNames PosixCalendarNames(const char* name);

} // namespace qrtVistrelClasses4
