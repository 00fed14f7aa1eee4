#include "frame/ErrorTrap.h"

#include "frame/ObjectCall.h"
#include "frame/TraceRecords.h"

#include <new>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constinit ErrorReporter* installedReporter = nullptr;

void report(const RuntimeError& error, TraceLine procedure, std::vector<TraceLine> stack) {
    const ObjectCall hostCode;
    ErrorReporter& reporter = installedReporter ? *installedReporter : defaultErrorReporter();
    reporter.report({error, std::move(procedure), std::move(stack)});
}

} // namespace

template <>
ErrorReporter*& ScopedErrorReporter::installed() {
    return installedReporter;
}

RuntimeError CurrentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(ErrorNumber::outOfMemory);
    } catch (...) {
        return RuntimeError(ErrorNumber::internalError);
    }
}

void RethrowAsRuntimeError() {
    try {
        throw;
    } catch (const RuntimeError&) {
        throw;
    } catch (...) {
        throw CurrentError();
    }
}

void ReportQuietly(const RuntimeError& error) noexcept {
    try {
        std::vector<TraceLine> stack = RunningProcedures();
        TraceLine procedure = stack.empty() ? TraceLine() : stack.back();
        report(error.quietly(), std::move(procedure), std::move(stack));
    } catch (...) { // NOLINT(bugprone-empty-catch): a failing report never makes another error
    }
}

void ReportKeptCopy(const std::optional<std::string>& copy) noexcept {
    try {
        if (copy)
            ReportQuietly(RuntimeError(static_cast<int>(ErrorNumber::fileAlreadyExists),
                                       "What was in the file before is kept as " + *copy));
    } catch (...) { // NOLINT(bugprone-empty-catch): a failing report never makes another error
    }
}

void TrapCurrentError(const TraceRecord& record, TraceRecord* outer, const ObjectCall* call) noexcept {
    try {
        const RuntimeError error = CurrentError();
        const ObjectCall* const running = call ? call : traceState.call;
        if (running && (!error.isQuiet() || (call && call->isOutermost())))
            running->note(error);
        report(error, record.atEntry(), RunningProcedures());
    } catch (...) { // NOLINT(bugprone-empty-catch): a failing report never makes another error
    }
    traceState.unwindTo(outer);
}

void NoteCurrentError(const ObjectCall& call) noexcept {
    try {
        call.note(CurrentError());
    } catch (...) { // NOLINT(bugprone-empty-catch): without memory, the error itself goes on to the caller
    }
}

void NoteError(const RuntimeError& error) noexcept {
    if (traceState.call)
        traceState.call->note(error);
}

} // namespace qrtVistrelClasses4
