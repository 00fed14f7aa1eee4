// What a good programmer would write by hand for the preferences alone: no trace, no error trap, no lock, and
// no way to put another machine in the place of this one.
#pragma once

#include <qrtVistrelClasses4/Preferences.h>

#include <string>

namespace qrtVistrelClasses4::bench {

/// Reads the file at once, and looks for each preference first where the last one ended. Those that the file
/// lacks stay empty.
Preferences LoadPreferencesCarefully(const std::string& path);

/// Replaces the values in the file, adds those that it lacks, and writes it as `WriteDurably` does.
void SavePreferencesCarefully(const Preferences& preferences, const std::string& path);

} // namespace qrtVistrelClasses4::bench
