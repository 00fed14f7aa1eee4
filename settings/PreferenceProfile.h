// Preferences in an INI file that the caller has opened.
#pragma once

#include "platform/ProfileFile.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// Gives the text of a key, or the default if the key is missing.
using PreferenceSource = std::function<std::string(const std::string& key, const std::string& defaultText)>;

/// Like `PreferencesPath`, but the name of the file may differ in case from the one on the disk. That of an
/// INI file does not matter, so nobody has to look.
std::optional<std::string> PreferencesName();
/// The file `path`, or the one beside the program as long as `path` is missing.
std::unique_ptr<ProfileFile> OpenPreferences(const std::string& path);
/// Like `LoadPreferences`, from `file`.
PreferencesOutcome ReadPreferences(ProfileFile& file, const PreferenceFolders& folders, Preferences before);
/// Like `LoadCropPreferences`, from `source`.
PreferencesOutcome ReadCropPreferences(const PreferenceSource& source);
/// Like `SavePreferences`, to `file`.
[[nodiscard]] std::optional<RuntimeError> WritePreferences(ProfileFile& file, const Preferences& preferences);

} // namespace qrtVistrelClasses4
