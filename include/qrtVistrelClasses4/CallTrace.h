// The call trace: which procedures are running on this thread, and with which arguments.
//
// Every procedure of the library enters and leaves the trace by itself. Each thread has a trace of its own.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/ScopedInstallation.h>

#include <string>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// One procedure of the trace, as text.
struct TraceLine {
    std::string module;
    std::string procedure;
    std::string arguments; ///< In brackets: "(From=2, WhereTo=7)".
};

/// `TraceEnter` puts a procedure of the host on the trace, and `TraceLeave` takes it off again. While tracing
/// is off, `TraceEnter` does nothing.
QRT_PUBLIC void TraceEnter(std::string_view module, std::string_view procedure, std::string_view arguments);
QRT_PUBLIC void TraceLeave(std::string_view module, std::string_view procedure, std::string_view arguments);

/// Whether tracing is on for this thread. It is on when a thread starts.
QRT_PUBLIC bool TraceIsOn();
QRT_PUBLIC void SwitchTrace(bool on);

/// The procedures of this thread that were entered and not yet left, outermost first, with their arguments at
/// entry.
QRT_PUBLIC std::vector<TraceLine> RunningProcedures();

/// Receives every procedure of a thread with its argument text at entry and at exit. A procedure that fails
/// has no exit. A recorder must not change objects whose procedures are running; what it throws is ignored.
class TraceRecorder {
public:
    virtual ~TraceRecorder() = default;
    virtual void entered(const TraceLine& line) = 0;
    virtual void left(const TraceLine& line) = 0;
};

/// Installs a recorder for the calling thread. Must be destroyed on the same thread.
using ScopedTraceRecorder = ScopedInstallation<TraceRecorder>;
template <>
TraceRecorder*& ScopedTraceRecorder::installed();

} // namespace qrtVistrelClasses4
