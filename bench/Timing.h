// Registering jobs to be measured.
#pragma once

#include "bench/Instructions.h"
#include "bench/Ratio.h"

#include <benchmark/benchmark.h>

#include <string>

namespace qrtVistrelClasses4::bench {

/// Registers a job. `work` prepares it, and passes what is to be measured to `TimeWork` or `TimeMaking`.
template <class Work>
void RegisterWork(const std::string& name, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [name, work](benchmark::State& state) {
        work(state);
        if (AreInstructionsCounted())
            Measured()[name] = TakeInstructions();
    })->Unit(benchmark::kMillisecond);
}

/// Measures `work`.
template <class Work>
void TimeWork(benchmark::State& state, Work work) {
    for (auto _ : state)
        work();
    CountInstructions(work);
}

/// Measures `work`. What `restore` does before the next turn does not count.
template <class Work, class Restore>
void TimeWork(benchmark::State& state, Work work, Restore restore) {
    for (auto _ : state) {
        work();
        state.PauseTiming();
        restore();
        state.ResumeTiming();
    }
    CountInstructions(work);
}

/// Measures `make`, which gives a pointer to what it has made. Letting go of that does not count.
template <class Make>
void TimeMaking(benchmark::State& state, Make make) {
    decltype(make()) made;
    TimeWork(
        state, [&] { made = make(); }, [&] { made.reset(); });
}

} // namespace qrtVistrelClasses4::bench
