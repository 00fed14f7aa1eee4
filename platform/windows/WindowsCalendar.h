// The names of days and months in a locale of the system.
#pragma once

#include "platform/Platform.h"

#include <windows.h>

namespace qrtVistrelClasses4 {

CalendarNames WindowsCalendarNames(LCID locale);

} // namespace qrtVistrelClasses4
