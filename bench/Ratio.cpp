#include "bench/Ratio.h"

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

bool PrintRatios(const std::vector<Ratio>& ratios, Bound must) {
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
        const bool isMust = ratio.bound == must;
        allMustsHold = allMustsHold && (holds || !isMust);
        std::printf("%-28s  %-29s %6.2f  %s %-5.2f  %s\n", ratio.subject.c_str(), ratio.against.c_str(),
                    reached, isMust ? "must" : "aim ", ratio.most, holds ? "yes" : "no");
    }
    return allMustsHold;
}

void CompareGrowth(std::vector<Ratio>& ratios, const std::string& large, const std::string& quarter) {
    ratios.push_back({large, large, quarter, Bound::countedMust, 4.8});
    ratios.push_back({large, large, quarter, Bound::aim, 4.4});
}

} // namespace qrtVistrelClasses4::bench
