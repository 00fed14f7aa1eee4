#include "frame/CallTrace.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array<std::string_view, 4> kKindTexts{"Sub ", "Function ", "Property (Get) ",
                                                     "Property (Let) "};

/// A procedure of the host, told by its texts.
class HostRecord final : public TraceRecord {
public:
    explicit HostRecord(TraceLine line) : line_(std::move(line)) {}
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
HostRecord* findHostRecord(std::string_view module, std::string_view procedure) {
    for (TraceRecord* record = traceState.innermost; record && record->isOwned(); record = record->outer)
        if (auto* host = static_cast<HostRecord*>(record); host->isOf(module, procedure))
            return host;
    return nullptr;
}

} // namespace

constinit thread_local TraceState traceState;

std::string Procedure::fullName() const {
    return std::string(kKindTexts[static_cast<std::size_t>(kind)]).append(name);
}

void TraceEnter(std::string_view module, std::string_view procedure, std::string_view arguments) {
    if (traceState.on)
        traceState.enter(*std::make_unique<HostRecord>(makeLine(module, procedure, arguments)).release());
}

void TraceLeave(std::string_view module, std::string_view procedure, std::string_view arguments) {
    if (!traceState.on)
        return;
    if (traceState.recorder)
        traceState.recorder->left(makeLine(module, procedure, arguments));
    if (HostRecord* record = findHostRecord(module, procedure))
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

void TraceState::tellEntered(const TraceRecord& record) { recorder->entered(record.atEntry()); }
void TraceState::tellLeft(const TraceRecord& record) { recorder->left(record.atExit()); }

void TraceState::unwindTo(TraceRecord* record) {
    while (innermost && innermost != record) {
        TraceRecord* const dropped = std::exchange(innermost, innermost->outer);
        if (dropped->isOwned())
            delete static_cast<HostRecord*>(dropped);
    }
}

} // namespace qrtVistrelClasses4
