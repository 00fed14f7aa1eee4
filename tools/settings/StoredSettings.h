// Settings on disk, as commands use them.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/SignTiming.h>

namespace qrtVistrelClasses4 {

/// The preferences of this machine. Adds an error for each value that does not convert; its default is used.
Preferences LoadStoredPreferences(ErrorLines& errors);

/// The speeds of signs. Adds an error for each bad value in the file; what is assumed is used instead.
SignTiming LoadStoredTiming(ErrorLines& errors);

} // namespace qrtVistrelClasses4
