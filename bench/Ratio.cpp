#include "bench/Ratio.h"

#include "bench/Instructions.h"

#include <cstdio>
#include <stdexcept>

namespace qrtVistrelClasses4::bench {

void Require(bool holds, const std::string& what) {
    if (!holds)
        throw std::logic_error(what);
}

std::map<std::string, double>& Measured() {
    static std::map<std::string, double> measured;
    return measured;
}

void MedianReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred)
            std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        else if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            Measured()[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
}

void PrintInstructions() {
    for (const auto& [job, count] : Measured())
        std::printf("%15.0f  %s\n", count, job.c_str());
}

namespace {

/// "must", "aim", or nothing for a bound that is not for this run. A run that takes times shows the others as
/// aims.
const char* nameOf(Bound bound) {
    switch (bound) {
    case Bound::must:
        return AreInstructionsCounted() ? "" : "must";
    case Bound::aim:
        return AreInstructionsCounted() ? "" : "aim";
    case Bound::countedMust:
        return AreInstructionsCounted() ? "must" : "aim";
    default:
        return "aim";
    }
}

} // namespace

bool PrintRatios(const std::vector<Ratio>& ratios) {
    constexpr double kMostThatSaysAnything = 1000; // more is against a peer whose work the system does
    const std::map<std::string, double>& jobs = Measured();
    bool allMustsHold = true;
    std::printf("%-28s  %-29s %6s  %-10s  %s\n", "subject", "against", "ratio", "bound", "reached");
    for (const Ratio& ratio : ratios) {
        const auto measured = jobs.find(ratio.measured);
        const auto against = jobs.find(ratio.against);
        if (measured == jobs.end() || against == jobs.end())
            continue;
        const double reached = measured->second / against->second;
        const bool holds = reached <= ratio.most;
        const std::string bound = nameOf(ratio.bound);
        allMustsHold = allMustsHold && (holds || bound != "must");
        if (reached > kMostThatSaysAnything)
            continue;
        std::printf("%-28s  %-29s %6.2f", ratio.subject.c_str(), ratio.against.c_str(), reached);
        if (!bound.empty())
            std::printf("  %-4s %-5.2f  %s", bound.c_str(), ratio.most, holds ? "yes" : "no");
        std::printf("\n");
    }
    return allMustsHold;
}

void CompareGrowth(std::vector<Ratio>& ratios, const std::string& large, const std::string& quarter) {
    ratios.push_back({large, large, quarter, Bound::countedMust, 4.8});
    ratios.push_back({large, large, quarter, Bound::countedAim, 4.4});
}

} // namespace qrtVistrelClasses4::bench
