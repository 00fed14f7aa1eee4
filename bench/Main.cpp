// Measures the library against what a user would use instead and against the least that the work can cost,
// and prints how they compare. Under callgrind, it counts instructions instead of taking times. Options are
// those of Google Benchmark.
#include "bench/Instructions.h"
#include "bench/Subjects.h"
#include "platform/Platform.h"

#include <cstdio>
#include <exception>

namespace qrtVistrelClasses4::bench {
namespace {

/// Contestants take turns in a new order every time, so that a slow moment of the machine meets all of them.
/// Options of the command line come later and win.
std::vector<char*> withDefaults(int argc, char** argv) {
    static char interleaving[] = "--benchmark_enable_random_interleaving=true";
    static char repetitions[] = "--benchmark_repetitions=11";
    static char once[] = "--benchmark_repetitions=1";
    static char shortest[] = "--benchmark_min_time=0.1";
    static char anyTime[] = "--benchmark_min_time=0";
    std::vector<char*> arguments(argv, argv + argc);
    if (AreInstructionsCounted())
        arguments.insert(arguments.begin() + 1, {once, anyTime});
    else
        arguments.insert(arguments.begin() + 1, {interleaving, repetitions, shortest});
    return arguments;
}

bool measure() {
    const BenchFolder folder;
    std::printf("files in %s\n",
                folder.isInMemory() ? "memory" : "the temporary folder, which may be on a disk");
    const auto machine = makePlatform({folder.path()});
    const ScopedPlatform use(*machine);
    std::vector<Ratio> ratios;
    for (const auto& subject :
         {PlayfileSubject(folder), ReferencesSubject(folder), ValidationSubject(folder), WalkSubject(folder),
          XmlSubject(folder), JsonSubject(folder), EditSubject(folder), RepeatedEditSubject(),
          HistorySubject(folder), DisplaysSubject(folder), CommandsSubject(folder), LegacySubject(folder),
          PlayTimeSubject(folder), FontsSubject(folder), PreviewSubject(folder), FilmSubject(folder),
          SettingsSubject(folder), TraceSubject(), ProgramSubject(folder)})
        ratios.insert(ratios.end(), subject.begin(), subject.end());
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (AreInstructionsCounted())
        PrintInstructions();
    return PrintRatios(ratios);
}

} // namespace
} // namespace qrtVistrelClasses4::bench

int main(int argc, char** argv) {
    using namespace qrtVistrelClasses4::bench;
    std::vector<char*> arguments = withDefaults(argc, argv);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    try {
        return measure() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
