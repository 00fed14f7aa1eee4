#include "frame/ErrorTrap.h"

#include <new>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

ErrorReporter* installedReporter = nullptr;
thread_local std::uint64_t trappedErrors = 0;

void report(const RuntimeError& error, TraceLine procedure, std::vector<TraceLine> stack) {
    ErrorReporter& reporter = installedReporter ? *installedReporter : defaultErrorReporter();
    reporter.report({error, std::move(procedure), std::move(stack)});
}

} // namespace

ScopedErrorReporter::ScopedErrorReporter(ErrorReporter& reporter)
    : previous_(std::exchange(installedReporter, &reporter)) {}
ScopedErrorReporter::~ScopedErrorReporter() { installedReporter = previous_; }

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

std::uint64_t TrappedErrors() { return trappedErrors; }

void ReportQuietly(const RuntimeError& error) noexcept {
    try {
        std::vector<TraceLine> stack = RunningProcedures();
        TraceLine procedure = stack.empty() ? TraceLine() : stack.back();
        report(error.quietly(), std::move(procedure), std::move(stack));
    } catch (...) { // NOLINT(bugprone-empty-catch): a failing report never makes another error
    }
}

void TrapCurrentError(const TraceRecord& record, TraceRecord* outer) noexcept {
    ++trappedErrors;
    try {
        report(CurrentError(), record.atEntry(), RunningProcedures());
    } catch (...) { // NOLINT(bugprone-empty-catch): a failing report never makes another error
    }
    traceState.unwindTo(outer);
}

} // namespace qrtVistrelClasses4
