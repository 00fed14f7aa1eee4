// Where errors of traced procedures end: reported once, with the trace, to whoever is in charge of reports.
#pragma once

#include "frame/CallTrace.h"
#include "frame/RuntimeError.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

struct ErrorReport {
    RuntimeError error;
    /// The procedure that trapped the error.
    TraceLine procedure;
    /// The procedures on the trace at the time, outermost first. Those entered while tracing is off are not
    /// on it; one that let the error through stands behind the trapping one.
    std::vector<TraceLine> stack;
};

class ErrorReporter {
public:
    virtual ~ErrorReporter() = default;
    /// May call the library, but not change objects whose procedures are running. What it throws is dropped:
    /// a failing report never makes another error.
    virtual void report(const ErrorReport& report) = 0;
};

/// The reporter used while no other is installed. The library's settings room supplies it, because it writes
/// a log into a folder that only settings tell.
ErrorReporter& defaultErrorReporter();

/// Installs a reporter for the whole process as long as this object lives. `reporter` must outlive it.
class ScopedErrorReporter {
public:
    explicit ScopedErrorReporter(ErrorReporter& reporter);
    ~ScopedErrorReporter();
    ScopedErrorReporter(const ScopedErrorReporter&) = delete;
    ScopedErrorReporter& operator=(const ScopedErrorReporter&) = delete;

private:
    ErrorReporter* previous_;
};

/// How many errors this thread has trapped so far. A procedure that calls others, which trap their own
/// errors, learns from a change that one of them has failed.
std::uint64_t TrappedErrors();

/// Reports an error that does not stop the running procedure: it is logged, and the operator not bothered.
void ReportQuietly(const RuntimeError& error) noexcept;

/// To be called while handling an exception of the procedure that `record` stands for: reports it, then takes
/// the trace back to `outer`, the procedure that called.
void TrapCurrentError(const TraceRecord& record, TraceRecord* outer) noexcept;

/// The exception being handled as a `RuntimeError`: out of memory is error 7, anything unknown error 51.
RuntimeError CurrentError();

} // namespace qrtVistrelClasses4
