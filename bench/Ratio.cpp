#include "bench/Ratio.h"

#include <cstdio>
#include <stdexcept>

namespace qrtVistrelClasses4::bench {

void Require(bool holds, const std::string& what) {
    if (!holds)
        throw std::logic_error(what);
}

void MedianReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred)
            std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        else if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
}

bool PrintRatios(const std::vector<Ratio>& ratios, const std::map<std::string, double>& medians) {
    bool allMustsHold = true;
    std::printf("%-28s  %-29s %6s  %-10s  %s\n", "subject", "against", "ratio", "bound", "reached");
    for (const Ratio& ratio : ratios) {
        const auto measured = medians.find(ratio.measured);
        const auto against = medians.find(ratio.against);
        if (measured == medians.end() || against == medians.end())
            continue;
        const double reached = measured->second / against->second;
        const bool holds = reached <= ratio.most;
        const bool isMust = ratio.bound == Bound::must;
        allMustsHold = allMustsHold && (holds || !isMust);
        std::printf("%-28s  %-29s %6.2f  %s %-5.2f  %s\n", ratio.subject.c_str(), ratio.against.c_str(),
                    reached, isMust ? "must" : "aim ", ratio.most, holds ? "yes" : "no");
    }
    return allMustsHold;
}

} // namespace qrtVistrelClasses4::bench
