// Lists of signs as other programs write and read them.
#pragma once

#include "tools/exchange/RecordKinds.h"
#include "tools/program/Commands.h"
#include <qrtVistrelClasses4/SignList.h>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Whether a text comes back as it was from a list of signs.
bool CanBeInSignList(std::string_view ansi);

template <>
struct Exchanged<BrightnessSchedule> {
    static constexpr const auto& rows = kScheduleMembers;
    static constexpr std::int32_t most = kSchedulesOfADisplay;
    static bool canHold(std::string_view ansi) { return CanBeInSignList(ansi); }
};

template <>
struct Exchanged<DisplayRecord> {
    static constexpr const auto& rows = kDisplayMembers;
    static constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    static bool canHold(std::string_view ansi) { return CanBeInSignList(ansi); }
    /// Each sign has a name.
    static void addMembers(JsonKind& kind) { kind.members.front().isRequired = true; }
};

/// The list as a table for spreadsheets, with a line for each sign.
std::string CsvOf(const SignList& list);

struct SignsImport {
    std::string fileName;     ///< As error messages name it.
    bool isUnchecked = false; ///< Values may be such that no sign has.
    /// The list whose signs of the same name are changed. Values that the file lacks stay as they are. Null
    /// if the file has a list of its own; such values are then those of a new sign.
    const SignList* merged = nullptr;
};

/// The list that a file makes. Returns nothing, after adding all errors, if anything in it is wrong.
std::optional<SignList> SignsOfCsv(const std::string& text, const SignsImport& import, ErrorLines& errors);
std::optional<SignList> SignsOfJson(const std::string& text, const SignsImport& import, ErrorLines& errors);

/// Adds "export" and "import". `json` says whether a command prints JSON.
void AddSignsExchange(CLI::App& signs, Session& session, std::shared_ptr<const bool> json);

} // namespace qrtVistrelClasses4
