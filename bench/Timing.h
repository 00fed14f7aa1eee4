// Registering work to be timed.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace qrtVistrelClasses4::bench {

template <class Work>
void RegisterWork(const std::string& name, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
        work(state);
    })->Unit(benchmark::kMillisecond);
}

/// Times `work`. What `restore` does before the next turn does not count.
template <class Work, class Restore>
void TimeWork(benchmark::State& state, Work work, Restore restore) {
    for (auto _ : state) {
        work();
        state.PauseTiming();
        restore();
        state.ResumeTiming();
    }
}

/// Times `make`, which gives a pointer to what it has made. Letting go of that does not count.
template <class Make>
void TimeMaking(benchmark::State& state, Make make) {
    decltype(make()) made;
    TimeWork(
        state, [&] { made = make(); }, [&] { made.reset(); });
}

} // namespace qrtVistrelClasses4::bench
