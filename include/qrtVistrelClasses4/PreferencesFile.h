// Loading and saving preferences.
//
// These functions use the platform and the settings of the process. Several threads may call them at once for
// different files.
// The functions report failures of files in what they return. They throw error 7 for lack of memory and error
// 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The folders that are the defaults of two preferences.
struct PreferenceFolders {
    std::string graphics;
    /// In the user's documents; nothing if the user has no such folder.
    std::optional<std::string> playfiles;
};

/// The folders of this machine and user. They may not exist.
QRT_PUBLIC PreferenceFolders FindPreferenceFolders();
/// Makes the folder for playfiles if it is missing, but not without a documents folder. Returns the error if
/// that fails.
QRT_PUBLIC [[nodiscard]] std::optional<RuntimeError> MakePlayfileFolder(const PreferenceFolders& folders);
/// Full name of "VistrelLite.ini" in the application data folder; nothing after an error that was trapped. If
/// that folder is the library's own and has no such file, the functions below read the one beside the
/// program, and the first change copies it.
QRT_PUBLIC std::optional<std::string> PreferencesPath();

/// The preferences that apply if the file has none.
QRT_PUBLIC Preferences DefaultPreferences(const PreferenceFolders& folders);

/// The text of a preference in the file.
QRT_PUBLIC std::string PreferenceText(const std::string& value);
QRT_PUBLIC std::string PreferenceText(bool value);
QRT_PUBLIC std::string PreferenceText(double value);
QRT_PUBLIC std::string PreferenceText(std::int16_t value);

/// A value in the file that does not convert.
struct PreferenceError {
    std::string key;
    RuntimeError error;
};

struct PreferencesCircumstances {
    std::string path;
    PreferenceFolders folders;
    Preferences before; ///< The values of preferences that are not read.
};

/// What came of reading preferences.
struct [[nodiscard]] PreferencesOutcome {
    Preferences values; ///< Those that `errors` names were not read.
    std::vector<PreferenceError> errors;

    /// One error that names all keys of `errors`; its number is that of the first. No value if there are no
    /// errors.
    std::optional<RuntimeError> error() const;
};

QRT_PUBLIC PreferencesOutcome LoadPreferences(PreferencesCircumstances circumstances);
/// The same for the file and the folders of this machine. Makes the folder for playfiles if it can.
QRT_PUBLIC PreferencesOutcome LoadPreferences();
/// The same, but makes no folder.
QRT_PUBLIC PreferencesOutcome LoadPreferencesOnly();
/// Reads only `BMPCrop` and `AVICrop`, from the same file, and makes no folder. All other values are empty.
QRT_PUBLIC PreferencesOutcome LoadCropPreferences();

/// Writes all preferences in one step and keeps everything else in the file. Returns the error if that fails.
QRT_PUBLIC [[nodiscard]] std::optional<RuntimeError> SavePreferences(const Preferences& preferences,
                                                                     const std::string& path);

/// The value of `key` in the file as it is now, cut to 254 characters; `defaultText` if it is missing.
QRT_PUBLIC std::string ReadPreference(const std::string& path, const std::string& key,
                                      const std::string& defaultText);

struct [[nodiscard]] WrittenPreference {
    std::optional<RuntimeError> error; ///< If there is one, the file is unchanged.
    /// True if the same text is read back: it has no blanks or pair of quotes around it, is on one line, and
    /// has at most 254 characters.
    bool readsBack = false;
};

/// Writes one key, and makes file and section if they are missing.
QRT_PUBLIC WrittenPreference WritePreference(const std::string& path, const std::string& key,
                                             const std::string& text);

/// Removes one key, so that its default counts. Returns the error if that fails; the file is then unchanged.
QRT_PUBLIC [[nodiscard]] std::optional<RuntimeError> RemovePreference(const std::string& path,
                                                                      const std::string& key);

} // namespace qrtVistrelClasses4
