// The wrapper around the body of every procedure: `return traced(...)`.
//
// A wrapper copies no argument outside its trap: without memory, even the copy that the trace needs is an
// error of the procedure.
#pragma once

#include "frame/ErrorTrap.h"
#include "frame/TraceRecords.h"

#include <optional>
#include <type_traits>

namespace qrtVistrelClasses4 {

/// Runs `body` between entry and exit of `record`. After an error there is no exit.
template <class Record, class Body>
std::invoke_result_t<Body&> onTrace(TraceState& trace, Record& record, Body& body) {
    trace.enter(record);
    record.keepArguments();
    if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
        body();
        trace.leave(record);
    } else {
        std::invoke_result_t<Body&> value = body();
        trace.leave(record);
        return value;
    }
}

/// Runs `body` while `record`, which is not on the trace, is ready for a report.
template <class Record, class Body>
std::invoke_result_t<Body&> offTrace(Record& record, Body& body) {
    record.keepArguments();
    return body();
}

/// Runs `body` as the procedure `where`, which is on the trace meanwhile. An error of the body is trapped: it
/// is reported, and the result is the procedure's failure value (false, 0, "").
template <class Body, class... Ts>
std::invoke_result_t<Body&> traced(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    using Value = std::invoke_result_t<Body&>;
    ProcedureRecord<Ts...> record(where, arguments...);
    TraceState& trace = traceState;
    TraceRecord* const outer = trace.innermost;
    try {
        return trace.on ? onTrace(trace, record, body) : offTrace(record, body);
    } catch (...) {
        TrapCurrentError(record, outer);
        return Value();
    }
}

/// Like `traced`, for a procedure that is never on the trace: it only traps and reports errors.
template <class Body, class... Ts>
std::invoke_result_t<Body&> trapped(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    using Value = std::invoke_result_t<Body&>;
    ProcedureRecord<Ts...> record(where, arguments...);
    TraceRecord* const outer = traceState.innermost;
    try {
        return offTrace(record, body);
    } catch (...) {
        TrapCurrentError(record, outer);
        return Value();
    }
}

/// Like `traced`, but lets an error through to the caller, as `RuntimeError`. The report of the caller's trap
/// shows the procedure as the innermost one.
template <class Body, class... Ts>
std::invoke_result_t<Body&> tracedThrowing(Procedure where, Body body, Arg<Ts>... arguments) {
    ProcedureRecord<Ts...> record(where, arguments...);
    TraceState& trace = traceState;
    const bool entered = trace.on;
    try {
        return entered ? onTrace(trace, record, body) : offTrace(record, body);
    } catch (...) {
        if (entered)
            trace.abandon(record);
        RethrowAsRuntimeError();
    }
}

/// Whether somebody counts the procedures that run. A procedure must then run each of its steps, also where
/// it knows a faster way to the same result.
inline bool StepsAreCounted() { return traceState.isRecorded(); }

/// Runs the body of an untraced accessor: an error goes to the caller, as `RuntimeError`.
template <class Body>
std::invoke_result_t<Body&> untraced(Body body) {
    try {
        return body();
    } catch (...) {
        RethrowAsRuntimeError();
    }
}

/// Runs `body`, and returns its error if it fails.
template <class Body>
std::optional<RuntimeError> ErrorOf(Body body) {
    try {
        body();
        return std::nullopt;
    } catch (...) {
        return CurrentError();
    }
}

/// Runs `body`. Its error is thrown on to the caller, marked as quiet: it is logged, but not shown to the
/// operator.
template <class Body>
std::invoke_result_t<Body&> quietly(Body body) {
    try {
        return body();
    } catch (...) {
        throw CurrentError().quietly();
    }
}

} // namespace qrtVistrelClasses4
