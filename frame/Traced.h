// One line around the body of every procedure: `return traced(...)`.
#pragma once

#include "frame/ErrorTrap.h"

#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {

/// Runs `body` between entry and exit of `record`. An error skips the exit.
template <class Body>
std::invoke_result_t<Body&> onTrace(TraceRecord& record, Body& body) {
    traceState.enter(record);
    if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
        body();
        traceState.leave(record);
    } else {
        std::invoke_result_t<Body&> value = body();
        traceState.leave(record);
        return value;
    }
}

/// Runs `body` as the procedure `where`, between its entry and its exit on the trace. An error of the body is
/// trapped here: it is reported, skips the exit, and the result is the procedure's failure value (false, 0,
/// "").
template <class Body, class... Ts>
std::invoke_result_t<Body&> traced(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    using Value = std::invoke_result_t<Body&>;
    ProcedureRecord<Ts...> record(where, std::move(arguments)...);
    TraceRecord* const outer = traceState.innermost;
    try {
        return traceState.on ? onTrace(record, body) : body();
    } catch (...) {
        TrapCurrentError(record, outer);
        return Value();
    }
}

/// As `traced`, for a procedure that has no place on the trace: only its error is reported.
template <class Body, class... Ts>
std::invoke_result_t<Body&> trapped(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    using Value = std::invoke_result_t<Body&>;
    ProcedureRecord<Ts...> record(where, std::move(arguments)...);
    TraceRecord* const outer = traceState.innermost;
    try {
        return body();
    } catch (...) {
        TrapCurrentError(record, outer);
        return Value();
    }
}

/// As `traced`, but lets an error through to the caller. The procedure then has not been left, and the report
/// of the caller's trap shows it as the innermost one.
template <class Body, class... Ts>
std::invoke_result_t<Body&> tracedThrowing(Procedure where, Body body, Arg<Ts>... arguments) {
    ProcedureRecord<Ts...> record(where, std::move(arguments)...);
    const bool entered = traceState.on;
    try {
        return entered ? onTrace(record, body) : body();
    } catch (...) {
        if (entered)
            traceState.abandon(record);
        throw CurrentError();
    }
}

/// Runs the body of an untraced accessor: errors go to the caller, as `RuntimeError` whatever they were.
template <class Body>
std::invoke_result_t<Body&> untraced(Body body) {
    try {
        return body();
    } catch (const RuntimeError&) {
        throw;
    } catch (...) {
        throw CurrentError();
    }
}

/// Runs `body`. Its error goes on to the caller as one that is logged but not shown to the operator.
template <class Body>
std::invoke_result_t<Body&> quietly(Body body) {
    try {
        return body();
    } catch (...) {
        throw CurrentError().quietly();
    }
}

} // namespace qrtVistrelClasses4
