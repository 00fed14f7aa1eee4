// Where the errors that procedures trap are reported.
#pragma once

#include <qrtVistrelClasses4/CallTrace.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/RuntimeError.h>
#include <qrtVistrelClasses4/ScopedInstallation.h>

#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

struct ErrorReport {
    RuntimeError error;
    /// The procedure that trapped the error.
    TraceLine procedure;
    /// The procedures that were on the trace at that time, outermost first. Procedures that were entered
    /// while tracing was off are missing. A procedure that let the error through comes after the one that
    /// trapped it.
    std::vector<TraceLine> stack;
};

/// Receives each error once, on the thread that trapped it. Several threads may report at the same time.
class ErrorReporter {
public:
    virtual ~ErrorReporter() = default;
    /// An error that is marked as quiet (`isQuiet()`) is one to log, without interrupting the user. May call
    /// the library, but must not change objects whose procedures are running. What it throws is ignored, so
    /// that a failing report never causes another error.
    virtual void report(const ErrorReport& report) = 0;
};

/// The reporter in use while no other is installed: it writes a log file and informs the operator, in
/// the way that the application's settings say.
QRT_PUBLIC ErrorReporter& defaultErrorReporter();

/// Installs a reporter for the whole process.
using ScopedErrorReporter = ScopedInstallation<ErrorReporter>;
template <>
ErrorReporter*& ScopedErrorReporter::installed();

} // namespace qrtVistrelClasses4
