// What is compared with what, and how the comparison is to end.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace qrtVistrelClasses4::bench {

enum class Bound {
    must, ///< Of the times.
    aim,
    countedMust, ///< Of the instructions, because the times depend on the machine's caches too much.
    countedAim,
};

/// Two jobs, by name. What the first takes, divided by what the second takes, is `most` at the most.
struct Ratio {
    std::string subject;
    std::string measured;
    std::string against;
    Bound bound;
    double most;
};

/// Throws `std::logic_error` when contestants did not do the same work.
void Require(bool holds, const std::string& what);

/// What each job took that has run: its median time, or its instructions in a run that counts those.
std::map<std::string, double>& Measured();

/// Notes the median times. Processor time is taken, so that a neighbour on the machine disturbs little; no
/// contestant waits for anything but memory.
class MedianReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
};

/// Prints the instructions of each job.
void PrintInstructions();
/// Prints one row a ratio whose two jobs have run. False if one does not hold that must in such a run.
bool PrintRatios(const std::vector<Ratio>& ratios);

/// Adds the ratios for a job and for the same with a quarter of its data.
void CompareGrowth(std::vector<Ratio>& ratios, const std::string& large, const std::string& quarter);

} // namespace qrtVistrelClasses4::bench
