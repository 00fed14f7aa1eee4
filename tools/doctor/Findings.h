// What `vistrel doctor` has found.
#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

enum class Severity : std::uint8_t {
    ok,
    note,    ///< Worth knowing, and usually as it should be.
    warning, ///< Something does not work for somebody, or not as expected.
    error,   ///< Something is damaged or missing.
};

/// Texts are UTF-8.
struct Finding {
    std::string_view check; ///< What was looked at. Scripts rely on these names.
    Severity severity = Severity::ok;
    std::string subject{};
    std::string message{};
    std::string advice{}; ///< What to do; empty if there is nothing to do.
    std::string path{};   ///< The file or folder, if it is about one, as the system spells it.
};
using Findings = std::vector<Finding>;

/// "1 error, 0 warnings, 2 notes".
std::string CountsOf(const Findings& findings);
bool HasErrors(const Findings& findings);

nlohmann::ordered_json JsonOf(const Findings& findings);
/// Prints a table, what to do, and how many findings there are.
void PrintFindings(std::ostream& out, const Findings& findings);

} // namespace qrtVistrelClasses4
