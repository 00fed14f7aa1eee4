#include "tools/settings/StoredSettings.h"

#include "tools/program/Encoding.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <utility>

namespace qrtVistrelClasses4 {

Preferences LoadStoredPreferences(ErrorLines& errors) {
    PreferencesOutcome loaded = LoadPreferencesOnly();
    errors.add(loaded.errors);
    return std::move(loaded.values);
}

SignTiming LoadStoredTiming(ErrorLines& errors) {
    const SignTimingOutcome loaded = LoadSignTiming();
    for (const BadTiming& bad : loaded.bad) {
        errors.about("SignTiming.ini, key " + std::string(bad.key));
        errors.add("\"" + Utf8FromAnsi(bad.text) + "\" " + std::string(bad.fault) +
                   "; what is assumed is used instead");
    }
    return loaded.timing;
}

} // namespace qrtVistrelClasses4
