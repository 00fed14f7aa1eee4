#include "frame/TraceRecords.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array<std::string_view, 4> kKindTexts{"Sub ", "Function ", "Property (Get) ",
                                                     "Property (Let) "};

/// A procedure that is known by its texts alone: one of the host, or one that failed.
class OwnedRecord final : public TraceRecord {
public:
    explicit OwnedRecord(TraceLine line) : line_(std::move(line)) {}
    TraceLine atEntry() const override { return line_; }
    TraceLine atExit() const override { return line_; }
    bool isOwned() const override { return true; }
    bool isOf(std::string_view module, std::string_view procedure) const {
        return line_.module == module && line_.procedure == procedure;
    }

private:
    TraceLine line_;
};

TraceLine makeLine(std::string_view module, std::string_view procedure, std::string_view arguments) {
    return {std::string(module), std::string(procedure), std::string(arguments)};
}

/// The record of a procedure that the host leaves; null if the host never entered it, or if procedures of the
/// library are above it.
OwnedRecord* findHostRecord(std::string_view module, std::string_view procedure) {
    for (TraceRecord* record = traceState.innermost; record && record->isOwned(); record = record->outer)
        if (auto* host = static_cast<OwnedRecord*>(record); host->isOf(module, procedure))
            return host;
    return nullptr;
}

/// Runs a step of the trace. Its errors must not make a procedure fail that would succeed without a trace.
template <class Step>
void ignoringErrors(Step step) noexcept {
    try {
        step();
    } catch (...) { // NOLINT(bugprone-empty-catch)
    }
}

void pushOwned(TraceLine line) {
    auto record = std::make_unique<OwnedRecord>(std::move(line));
    record->outer = traceState.innermost;
    traceState.innermost = record.release();
}

} // namespace

constinit thread_local TraceState traceState;

std::string Procedure::fullName() const {
    return std::string(kKindTexts[static_cast<std::size_t>(kind)]).append(name);
}

void TraceEnter(std::string_view module, std::string_view procedure, std::string_view arguments) {
    if (!traceState.on)
        return;
    pushOwned(makeLine(module, procedure, arguments));
    if (traceState.recorder)
        ignoringErrors([&] { traceState.recorder->entered(traceState.innermost->atEntry()); });
}

void TraceLeave(std::string_view module, std::string_view procedure, std::string_view arguments) {
    if (traceState.on && traceState.recorder)
        ignoringErrors([&] { traceState.recorder->left(makeLine(module, procedure, arguments)); });
    // This is done even while tracing is off, because it may have been on at the entry.
    if (OwnedRecord* record = findHostRecord(module, procedure))
        traceState.unwindTo(record->outer);
}

bool TraceIsOn() { return traceState.on; }
void SwitchTrace(bool on) { traceState.on = on; }

std::vector<TraceLine> RunningProcedures() {
    std::vector<TraceLine> lines;
    for (const TraceRecord* record = traceState.innermost; record; record = record->outer)
        lines.push_back(record->atEntry());
    std::reverse(lines.begin(), lines.end());
    return lines;
}

template <>
TraceRecorder*& ScopedTraceRecorder::installed() {
    return traceState.recorder;
}

void TraceState::recordEntry(const TraceRecord& record) {
    ignoringErrors([&] { recorder->entered(record.atEntry()); });
}
void TraceState::recordExit(const TraceRecord& record) {
    ignoringErrors([&] { recorder->left(record.atExit()); });
}

void TraceState::abandon(TraceRecord& record) noexcept {
    unwindTo(&record);
    innermost = record.outer;
    if (innermost) // without a caller, no trap or exit would ever drop the copy
        ignoringErrors([&] { pushOwned(record.atEntry()); });
}

void TraceState::unwindTo(TraceRecord* record) {
    while (innermost && innermost != record) {
        TraceRecord* const dropped = std::exchange(innermost, innermost->outer);
        if (dropped->isOwned())
            delete static_cast<OwnedRecord*>(dropped);
    }
}

} // namespace qrtVistrelClasses4
