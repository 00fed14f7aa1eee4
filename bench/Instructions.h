// Instructions that a job takes, counted by callgrind. Unlike times, they do not depend on what else the
// machine does; what the system does for a job is not among them.
#pragma once

#include <cstdint>
#include <string>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else // Nothing is counted, and a run that should do so fails.
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#define CALLGRIND_DUMP_STATS_AT(name)
#endif

namespace qrtVistrelClasses4::bench {

/// The file that callgrind writes counts to, with a number after its name for each dump; empty in a run that
/// takes times.
std::string CountsFile();

/// Whether this run counts instructions instead of taking times.
inline bool AreInstructionsCounted() { return !CountsFile().empty(); }

/// Counts the instructions of `work`, if this run counts any.
template <class Work>
void CountInstructions(Work work) {
    if (!AreInstructionsCounted())
        return;
    CALLGRIND_START_INSTRUMENTATION;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
}

/// The instructions counted since the last call.
double TakeInstructions();

} // namespace qrtVistrelClasses4::bench
