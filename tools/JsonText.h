// JSON as the program prints it.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace qrtVistrelClasses4 {

/// Indented, and in ASCII: a playfile's control characters beyond it must not reach the terminal either.
inline std::string JsonText(const nlohmann::ordered_json& value) { return value.dump(2, ' ', true); }

} // namespace qrtVistrelClasses4
