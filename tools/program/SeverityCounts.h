// How much of each severity was found.
#pragma once

#include "tools/program/Commands.h"
#include <qrtVistrelClasses4/ValidationRules.h>

#include <array>
#include <cstddef>
#include <string>

namespace qrtVistrelClasses4 {

class SeverityCounts {
public:
    void add(Severity severity) { ++counts_[static_cast<std::size_t>(severity)]; }
    std::size_t of(Severity severity) const { return counts_[static_cast<std::size_t>(severity)]; }

    /// "1 error, 0 warnings, 2 notes".
    std::string text() const {
        return counted(Severity::error) + ", " + counted(Severity::warning) + ", " + counted(Severity::note);
    }

private:
    std::string counted(Severity severity) const {
        return Counted(of(severity), std::string(SeverityName(severity)));
    }

    std::array<std::size_t, static_cast<std::size_t>(Severity::error) + 1> counts_{};
};

} // namespace qrtVistrelClasses4
