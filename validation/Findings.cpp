#include "validation/Findings.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

void Findings::add(RuleName name, const Place& place, std::string message, std::optional<double> fix) {
    findings_.push_back({.rule = name.rule(),
                         .frame = place.frame,
                         .line = place.line,
                         .property = place.property,
                         .message = std::move(message),
                         .fix = fix});
}

std::vector<Finding> Findings::inOrder() && {
    std::ranges::stable_sort(findings_, {},
                             [](const Finding& finding) { return std::pair(finding.frame, finding.line); });
    return std::move(findings_);
}

} // namespace qrtVistrelClasses4
