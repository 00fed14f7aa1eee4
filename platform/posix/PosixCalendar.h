// The names of days and months in a locale of the system.
#pragma once

#include "platform/Platform.h"

namespace qrtVistrelClasses4 {

/// Those of the locale `name`, the user's own for an empty one, English ones where there is no such locale.
CalendarNames PosixCalendarNames(const char* name);

} // namespace qrtVistrelClasses4
