#include <qrtVistrelClasses4/ValidationRules.h>

namespace qrtVistrelClasses4 {

std::string_view SeverityName(Severity severity) {
    switch (severity) {
    case Severity::note:
        return "note";
    case Severity::warning:
        return "warning";
    default:
        return "error";
    }
}

} // namespace qrtVistrelClasses4
