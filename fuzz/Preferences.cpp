// Any bytes as the file of the preferences.
#include "Fuzz.h"
#include <qrtVistrelClasses4/PreferencesFile.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <algorithm>

namespace qrtVistrelClasses4 {

namespace {

/// A value that does not convert counts as missing, and disturbs no other.
void requireEachValueForItself(const std::string& path) {
    const PreferencesOutcome loaded = LoadPreferences();
    ForEachPreference(
        [&](const auto& placed, const auto& value) {
            const auto isBad = [&](const PreferenceError& error) { return error.key == placed.key(); };
            if (std::ranges::any_of(loaded.errors, isBad))
                (void)WritePreference(path, placed.key(), PreferenceText(value));
        },
        loaded.values);
    const PreferencesOutcome mended = LoadPreferences();
    Require(mended.errors.empty() && mended.values == loaded.values, "a bad value is its default");
}

void requireWarningOfWhatIsNotKept(const std::string& path, const std::string& text) {
    const WrittenPreference written = WritePreference(path, "Key", text);
    Require(!written.error && written.readsBack == (ReadPreference(path, "Key", "") == text),
            "what is kept only in part is known");
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary("VistrelLite.ini");
    host.machine.files().put(path, input.rest());
    const std::string text = host.machine.files().content(path).value();
    if (!text.starts_with("\xff\xfe")) { // nothing is written into a file of 16-bit characters
        requireEachValueForItself(path);
        requireWarningOfWhatIsNotKept(path, text.substr(0, 256));
        host.machine.files().put(path, text);
    }
    const auto savedAgain = [&] {
        SettingsInfoClass settings;
        settings.GetSettingsFromDisk();
        settings.SaveSettingsToDisk();
        return host.machine.files().content(path);
    };
    const auto first = savedAgain();
    Require(savedAgain() == first, "what was saved comes back");
}

} // namespace qrtVistrelClasses4
