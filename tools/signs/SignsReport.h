// What commands print after they have changed the list of signs.
#pragma once

#include "tools/program/PropertyValues.h"
#include "tools/signs/SignsFile.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

struct SignsReport {
    std::string done;                                      ///< "removed Gate".
    std::string readFrom;                                  ///< The file that the list was in before.
    std::optional<std::vector<ChangedProperty>> changes{}; ///< If properties of one sign were set.
};

/// Prints it for the list that was saved, as JSON or for people.
void PrintReport(std::ostream& out, const SignsReport& report, const SignsFile& saved, bool json);

} // namespace qrtVistrelClasses4
