// The wrapper around the body of every procedure: `return traced(...)`.
//
// A wrapper copies no argument outside its trap: without memory, even the copy that the trace needs is an
// error of the procedure.
#pragma once

#include "frame/ErrorTrap.h"
#include "frame/TraceRecords.h"
#include <qrtVistrelClasses4/MemberTable.h>

#include <optional>
#include <type_traits>
#include <utility>

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

/// Runs `body` as the procedure `where`, which is not on the trace. An error of the body is trapped: it is
/// reported, and the result is the procedure's failure value (false, 0, "").
template <class Body, class... Ts>
std::invoke_result_t<Body&> trapped(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    TraceRecord* const outer = traceState.innermost;
    try {
        (arguments.keep(), ...);
        return body();
    } catch (...) {
        TrapCurrentError(ProcedureRecord<Ts...>(where, std::move(arguments)...), outer);
        return std::invoke_result_t<Body&>();
    }
}

/// Like `trapped`, but the procedure is on the trace, which must be switched on, while it runs.
template <class Body, class... Ts>
std::invoke_result_t<Body&> trappedOnTrace(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    TraceState& trace = traceState;
    TraceRecord* const outer = trace.innermost;
    ProcedureRecord<Ts...> record(where, std::move(arguments)...);
    try {
        return onTrace(trace, record, body);
    } catch (...) {
        TrapCurrentError(record, outer);
        return std::invoke_result_t<Body&>();
    }
}

/// Like `trapped`, but the procedure is on the trace while it runs, if the trace is switched on.
template <class Body, class... Ts>
std::invoke_result_t<Body&> traced(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    return traceState.on ? trappedOnTrace(where, body, std::move(arguments)...)
                         : trapped(where, body, std::move(arguments)...);
}

/// Runs the body of an untraced accessor: an error goes to the caller, as `RuntimeError`.
template <class Body>
std::invoke_result_t<Body&> untraced(Body body) {
    try {
        return body();
    } catch (...) {
        RethrowAsRuntimeError();
    }
}

/// Like `traced`, but lets an error through to the caller, as `RuntimeError`. If the trace is on, the report
/// of the caller's trap shows the procedure as the innermost one.
template <class Body, class... Ts>
std::invoke_result_t<Body&> tracedThrowing(Procedure where, Body body, Arg<Ts>... arguments) {
    TraceState& trace = traceState;
    if (!trace.on)
        return untraced(body);
    ProcedureRecord<Ts...> record(where, std::move(arguments)...);
    try {
        return onTrace(trace, record, body);
    } catch (...) {
        trace.abandon(record);
        RethrowAsRuntimeError();
    }
}

/// Calls `property.operator()<now>()` with what the access of a property is now: while the trace is off, a
/// traced property is a trapped one. The callee is best a function of its own for each access, not inlined,
/// so that the stack is only prepared for the trace while that is on.
template <Access access, class Property>
auto asAccessedNow(Property property) {
    if constexpr (access == Access::traced)
        if (!traceState.on)
            return property.template operator()<Access::trapped>();
    return property.template operator()<access>();
}

/// Runs the body of a property, called with `now` by `asAccessedNow`.
template <Access now, class Body, class... Ts>
std::invoke_result_t<Body&> accessed(Procedure where, Body body, Arg<Ts>... arguments) {
    if constexpr (now == Access::traced)
        return trappedOnTrace(where, body, std::move(arguments)...);
    else if constexpr (now == Access::trapped)
        return trapped(where, body, std::move(arguments)...);
    else
        return untraced(body);
}

/// Whether somebody counts the procedures that run. A procedure must then run each of its steps, also where
/// it knows a faster way to the same result.
inline bool StepsAreCounted() { return traceState.isRecorded(); }

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
