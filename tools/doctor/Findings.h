// What `vistrel doctor` has found.
#pragma once

#include "tools/program/SeverityCounts.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Texts are UTF-8.
struct DoctorFinding {
    std::string_view check; ///< What was looked at. Scripts rely on these names.
    /// An error is something that is damaged or missing, a warning something that does not work for somebody
    /// or not as expected; a note is usually as it should be. No value: it is in order.
    std::optional<Severity> severity{};
    std::string subject{};
    std::string message{};
    std::string advice{}; ///< What to do; empty if there is nothing to do.
    std::string path{};   ///< The file or folder, if it is about one, as the system spells it.
};
using DoctorFindings = std::vector<DoctorFinding>;

SeverityCounts CountsOf(const DoctorFindings& findings);

nlohmann::ordered_json JsonOf(const DoctorFindings& findings);
/// Prints a table, what to do, and how many findings there are.
void PrintFindings(std::ostream& out, const DoctorFindings& findings);

} // namespace qrtVistrelClasses4
