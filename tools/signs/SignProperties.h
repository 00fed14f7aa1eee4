// The properties of a sign, by the names that the library gives them.
#pragma once

#include "displays/DisplayDatabaseClass.h"
#include "tools/program/ErrorLines.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// All properties of sign `number`, those of its brightness schedules under "Schedules". Texts are UTF-8.
/// Moves the cursors of `signs`.
nlohmann::ordered_json SignJson(DisplayDatabaseClass& signs, std::int16_t number);

/// Sets a property of the sign under the cursor to what was typed. A property of a schedule is named as
/// "Schedule2.StartTime"; letters are taken without case. False, after telling why, when there is no such
/// property or the value is not of its type.
bool SetSignProperty(DisplayDatabaseClass& signs, std::string_view name, std::string_view typed,
                     ErrorLines& errors);

/// Names of the properties of the sign under the cursor whose text holds `character`.
std::vector<std::string> PropertiesHolding(DisplayDatabaseClass& signs, char character);

} // namespace qrtVistrelClasses4
