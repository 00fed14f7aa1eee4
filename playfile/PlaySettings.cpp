#include "playfile/PlaySettings.h"

#include "frame/ErrorTrap.h"
#include <qrtVistrelClasses4/CommandTableFile.h>
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <optional>
#include <string>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// The settings are needed again and again, so nobody wants a message box each time.
void reportIfAny(const std::optional<RuntimeError>& error) {
    if (error)
        ReportQuietly(*error);
}

} // namespace

Preferences LoadPreferencesQuietly() {
    PreferencesOutcome read = LoadPreferencesOnly();
    reportIfAny(read.error());
    return std::move(read.values);
}

DotSize PlaySettings::sizeOf(DotSize sign) const {
    return {sign.width > 0 ? sign.width : preferences.DisplayWidth,
            sign.height > 0 ? sign.height : preferences.DisplayHeight};
}

PlaySettings LoadPlaySettings() {
    Preferences preferences = LoadPreferencesQuietly();
    const SignTimingOutcome timing = LoadSignTiming();
    reportIfAny(timing.error());
    CommandTableOutcome commands = LoadCommandTable(CommandTablePath());
    reportIfAny(commands.error);
    return {std::move(preferences), timing.timing, std::move(commands.table)};
}

} // namespace qrtVistrelClasses4
