// What happens to trapped errors unless the host says otherwise: a line in the log, and a message to the
// operator.
#pragma once

#include <qrtVistrelClasses4/ErrorReporter.h>

namespace qrtVistrelClasses4 {

/// Appends every report to the log. Shows it in a critical message box, unless the error is quiet or the
/// setting "Vistrel3" / "Settings" / "ShowErrorReports" is false, or the library is unattended. If nobody can
/// see a box, the report goes to standard error instead, also unattended; then, every report that cannot be
/// logged goes there, too. The name of a procedure, all its arguments together
/// and the text of an error are each cut after `kLongestTextInReport` characters and then end in "...";
/// control characters show their codes ("<0D>").
class DefaultErrorReporter : public ErrorReporter {
public:
    void report(const ErrorReport& report) override;
};

} // namespace qrtVistrelClasses4
