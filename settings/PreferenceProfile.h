// Preferences in an INI file that the caller has opened.
#pragma once

#include "platform/ProfileFile.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <optional>

namespace qrtVistrelClasses4 {

/// Like `LoadPreferences`, from `file`.
PreferencesOutcome ReadPreferences(ProfileFile& file, const PreferenceFolders& folders, Preferences before);
/// Like `SavePreferences`, to `file`.
[[nodiscard]] std::optional<RuntimeError> WritePreferences(ProfileFile& file, const Preferences& preferences);

} // namespace qrtVistrelClasses4
