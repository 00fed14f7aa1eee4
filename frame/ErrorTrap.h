// What happens to an error that a procedure traps.
#pragma once

#include <qrtVistrelClasses4/ErrorReporter.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

class ObjectCall;
class TraceRecord;

/// Reports an error that does not stop the running procedure: it is logged, but not shown to the operator.
void ReportQuietly(const RuntimeError& error) noexcept;
/// The same for the name of a copy that was made of a file before it was replaced. Does nothing without one.
void ReportKeptCopy(const std::optional<std::string>& copy) noexcept;

/// Reports the exception being handled as an error of the procedure that `record` describes, then takes the
/// trace back to its caller, `outer`. The error is remembered by the object of `call`, which the procedure
/// is; without one, by the object whose call is running. A quiet error is remembered only if the whole call
/// of the object failed with it, or if `NoteError` had it remembered.
void TrapCurrentError(const TraceRecord& record, TraceRecord* outer, const ObjectCall* call) noexcept;
/// Has the object of `call` remember the exception being handled, which goes on to the caller.
void NoteCurrentError(const ObjectCall& call) noexcept;

/// Has the object whose call is running remember an error that is not trapped, or is marked as quiet.
void NoteError(const RuntimeError& error) noexcept;

/// The exception being handled as a `RuntimeError`: out of memory is error 7, anything unknown error 51.
RuntimeError CurrentError();

/// Throws the exception being handled as a `RuntimeError`.
[[noreturn]] void RethrowAsRuntimeError();

} // namespace qrtVistrelClasses4
