#include <qrtVistrelClasses4/Validation.h>

#include "frame/ErrorTrap.h"
#include "validation/FileLines.h"
#include "validation/Findings.h"
#include "validation/Rules.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {

std::vector<Finding> Validate(const Playfile& playfile, const ValidationCircumstances& circumstances) try {
    Findings findings;
    CheckPlayfile(playfile, circumstances, findings);
    CheckLoops(playfile, findings);
    CheckEffects(playfile, circumstances, findings);
    CheckFiles(playfile, circumstances, findings);
    CheckTexts(playfile, circumstances, findings);
    CheckNumbers(playfile, circumstances, findings);
    std::vector<Finding> found = std::move(findings).inOrder();
    if (circumstances.loaded)
        SetFileLines(playfile, *circumstances.loaded, found);
    return found;
} catch (...) {
    RethrowAsRuntimeError();
}

bool HasErrors(const std::vector<Finding>& findings) {
    return std::ranges::any_of(
        findings, [](const Finding& finding) { return finding.rule->severity == Severity::error; });
}

} // namespace qrtVistrelClasses4
