// The names of days and months in the system's locales.
#pragma once

#include "platform/Platform.h"

namespace qrtVistrelClasses4 {

/// The names of the locale `name`. An empty name means the user's locale, an unknown one English.
CalendarNames PosixCalendarNames(const char* name);

} // namespace qrtVistrelClasses4
