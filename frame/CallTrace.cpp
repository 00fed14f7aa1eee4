#include "frame/CallTrace.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array<std::string_view, 4> kKindTexts{"Sub ", "Function ", "Property (Get) ",
                                                     "Property (Let) "};

/// A procedure told by its texts: one of the host, or one that ended without being left.
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

/// The record that a host's leave ends; none when the host never entered, or the library is in between.
OwnedRecord* findHostRecord(std::string_view module, std::string_view procedure) {
    for (TraceRecord* record = traceState.innermost; record && record->isOwned(); record = record->outer)
        if (auto* host = static_cast<OwnedRecord*>(record); host->isOf(module, procedure))
            return host;
    return nullptr;
}

/// A recorder that fails must not turn a procedure that worked into one that failed.
template <class Tell>
void tellQuietly(Tell tell) {
    try {
        tell();
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
        tellQuietly([&] { traceState.recorder->entered(traceState.innermost->atEntry()); });
}

void TraceLeave(std::string_view module, std::string_view procedure, std::string_view arguments) {
    if (traceState.on && traceState.recorder)
        tellQuietly([&] { traceState.recorder->left(makeLine(module, procedure, arguments)); });
    // Also while tracing is off: it may have been on at the entry.
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

ScopedTraceRecorder::ScopedTraceRecorder(TraceRecorder& recorder)
    : previous_(std::exchange(traceState.recorder, &recorder)) {}
ScopedTraceRecorder::~ScopedTraceRecorder() { traceState.recorder = previous_; }

void TraceState::tellEntered(const TraceRecord& record) {
    tellQuietly([&] { recorder->entered(record.atEntry()); });
}
void TraceState::tellLeft(const TraceRecord& record) {
    tellQuietly([&] { recorder->left(record.atExit()); });
}

void TraceState::abandon(TraceRecord& record) {
    unwindTo(&record);
    innermost = record.outer;
    if (innermost) // else there is no caller whose trap or exit would ever drop it
        pushOwned(record.atEntry());
}

void TraceState::unwindTo(TraceRecord* record) {
    while (innermost && innermost != record) {
        TraceRecord* const dropped = std::exchange(innermost, innermost->outer);
        if (dropped->isOwned())
            delete static_cast<OwnedRecord*>(dropped);
    }
}

} // namespace qrtVistrelClasses4
