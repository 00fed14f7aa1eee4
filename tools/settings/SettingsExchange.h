// The preferences as other programs write and read them.
#pragma once

#include "tools/exchange/RecordKinds.h"
#include "tools/program/Commands.h"
#include <qrtVistrelClasses4/Preferences.h>

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

template <>
struct Exchanged<PreferredSchedule> {
    static constexpr const auto& rows = kPreferredScheduleMembers;
    static constexpr std::int32_t most = kBrightnessSchedules;
    static bool canHold(std::string_view ansi) { return HasNoControls(ansi); }
};

template <>
struct Exchanged<Preferences> {
    static constexpr const auto& rows = kPreferenceMembers;
    static bool canHold(std::string_view ansi) { return HasNoControls(ansi); }
};

struct SettingsImport {
    std::string fileName;     ///< As error messages name it.
    bool isUnchecked = false; ///< Values may be such that no sign has.
    Preferences present;      ///< The values of preferences that the file lacks.
};

/// The preferences that a file makes. Returns nothing, after adding all errors, if anything in it is wrong,
/// or would not be read back from the file of preferences.
std::optional<Preferences> SettingsOfJson(const std::string& text, const SettingsImport& import,
                                          ErrorLines& errors);

/// Adds "export" and "import".
void AddSettingsExchange(CLI::App& settings, Session& session);

} // namespace qrtVistrelClasses4
