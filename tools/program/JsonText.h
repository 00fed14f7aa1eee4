// JSON as the program prints it.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace qrtVistrelClasses4 {

/// Indented, and in ASCII: a playfile's control characters beyond it must not reach the terminal either.
/// Bytes of file names that are not UTF-8 become U+FFFD.
inline std::string JsonText(const nlohmann::ordered_json& value) {
    return value.dump(2, ' ', true, nlohmann::ordered_json::error_handler_t::replace);
}

} // namespace qrtVistrelClasses4
