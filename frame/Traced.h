// The wrapper around the body of every procedure: `return traced(...)`.
//
// A wrapper copies no argument outside its trap: without memory, even the copy that the trace needs is an
// error of the procedure.
#pragma once

#include "frame/ErrorTrap.h"
#include "frame/ObjectCall.h"
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

/// A procedure of an object, which remembers its last error.
struct ObjectProcedure {
    LastError& object;
    Procedure where;
};

/// The call of a procedure that belongs to no object. Its errors are those of the object whose call is
/// running.
struct ObjectlessCall {
    void trap(const TraceRecord& record, TraceRecord* outer) const noexcept {
        TrapCurrentError(record, outer, nullptr);
    }
};
/// The call of an object's procedure.
struct FullCall {
    explicit FullCall(LastError& object) noexcept : call(object) {}
    void trap(const TraceRecord& record, TraceRecord* outer) const noexcept {
        TrapCurrentError(record, outer, &call);
    }
    void noteThrown() const noexcept { NoteCurrentError(call); }
    ObjectCall call;
};
/// The call of an object's property, which calls nothing that could trap an error, or be a call of an object.
struct PropertyCall {
    PropertyCall(LastError& owner) noexcept // NOLINT(google-explicit-constructor)
        : object(owner) {
        object.begin();
    }
    void trap(const TraceRecord& record, TraceRecord* outer) const noexcept {
        FullCall(object).trap(record, outer);
    }
    void noteThrown() const noexcept { FullCall(object).noteThrown(); }
    LastError& object;
};

/// A procedure that only reads or sets a value of its object. Its call begins before its name is looked up,
/// so that the compiler can put off the latter until there is an error.
struct ObjectProperty {
    PropertyCall call;
    Procedure where;
};

/// `trapped` for any kind of call.
template <class Call, class Body, class... Ts>
std::invoke_result_t<Body&> trappedIn(const Call& call, Procedure where, Body body,
                                      Arg<Ts>... arguments) noexcept {
    TraceRecord* const outer = traceState.innermost;
    try {
        (arguments.keep(), ...);
        return body();
    } catch (...) {
        call.trap(ProcedureRecord<Ts...>(where, std::move(arguments)...), outer);
        return std::invoke_result_t<Body&>();
    }
}

/// Like `trappedIn`, but the procedure is on the trace, which must be switched on, while it runs.
template <class Call, class Body, class... Ts>
std::invoke_result_t<Body&> trappedOnTrace(const Call& call, Procedure where, Body body,
                                           Arg<Ts>... arguments) noexcept {
    TraceState& trace = traceState;
    TraceRecord* const outer = trace.innermost;
    ProcedureRecord<Ts...> record(where, std::move(arguments)...);
    try {
        return onTrace(trace, record, body);
    } catch (...) {
        call.trap(record, outer);
        return std::invoke_result_t<Body&>();
    }
}

/// `traced` for any kind of call.
template <class Call, class Body, class... Ts>
std::invoke_result_t<Body&> tracedIn(const Call& call, Procedure where, Body body,
                                     Arg<Ts>... arguments) noexcept {
    return traceState.on ? trappedOnTrace(call, where, body, std::move(arguments)...)
                         : trappedIn(call, where, body, std::move(arguments)...);
}

/// Runs `body` as the procedure `where`, which is not on the trace. An error of the body is trapped: it is
/// reported, and the result is the procedure's failure value (false, 0, "").
template <class Body, class... Ts>
std::invoke_result_t<Body&> trapped(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    return trappedIn(ObjectlessCall(), where, body, std::move(arguments)...);
}

template <class Body, class... Ts>
std::invoke_result_t<Body&> trapped(ObjectProcedure procedure, Body body, Arg<Ts>... arguments) noexcept {
    return trappedIn(FullCall(procedure.object), procedure.where, body, std::move(arguments)...);
}

/// Like `trapped`, but the procedure is on the trace while it runs, if the trace is switched on.
template <class Body, class... Ts>
std::invoke_result_t<Body&> traced(Procedure where, Body body, Arg<Ts>... arguments) noexcept {
    return tracedIn(ObjectlessCall(), where, body, std::move(arguments)...);
}
template <class Body, class... Ts>
std::invoke_result_t<Body&> traced(ObjectProcedure procedure, Body body, Arg<Ts>... arguments) noexcept {
    return tracedIn(FullCall(procedure.object), procedure.where, body, std::move(arguments)...);
}

/// `traced` for a procedure that only reads or sets a value of its object: it calls nothing that could trap
/// an error, and nothing of a host.
template <class Body, class... Ts>
std::invoke_result_t<Body&> tracedProperty(ObjectProperty property, Body body,
                                           Arg<Ts>... arguments) noexcept {
    return tracedIn(property.call, property.where, body, std::move(arguments)...);
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
template <class Body>
std::invoke_result_t<Body&> untraced(PropertyCall call, Body body) {
    try {
        return body();
    } catch (...) {
        call.noteThrown();
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
template <class Body, class... Ts>
std::invoke_result_t<Body&> tracedThrowing(ObjectProcedure procedure, Body body, Arg<Ts>... arguments) {
    const FullCall call(procedure.object);
    try {
        return tracedThrowing(procedure.where, body, std::move(arguments)...);
    } catch (...) {
        call.noteThrown();
        throw;
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
std::invoke_result_t<Body&> accessed(ObjectProperty property, Body body, Arg<Ts>... arguments) {
    if constexpr (now == Access::traced)
        return trappedOnTrace(property.call, property.where, body, std::move(arguments)...);
    else if constexpr (now == Access::trapped)
        return trappedIn(property.call, property.where, body, std::move(arguments)...);
    else
        return untraced(property.call, body);
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
/// operator. The object whose call is running remembers it like any other.
template <class Body>
std::invoke_result_t<Body&> quietly(Body body) {
    try {
        return body();
    } catch (...) {
        const RuntimeError error = CurrentError();
        NoteError(error);
        throw error.quietly();
    }
}

} // namespace qrtVistrelClasses4
