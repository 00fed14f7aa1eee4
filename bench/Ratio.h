// What is compared with what, and how the comparison is to end.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace qrtVistrelClasses4::bench {

enum class Bound { must, aim };

/// Four times the data may take this many times as long.
inline constexpr double kMostForFourTimes = 4.8;

/// Two benchmarks, by name. The time of the first, divided by the time of the second, is `most` at the most.
struct Ratio {
    std::string subject;
    std::string measured;
    std::string against;
    Bound bound;
    double most;
};

/// Throws `std::logic_error` when contestants did not do the same work.
void Require(bool holds, const std::string& what);

/// Keeps the median time of every benchmark. Processor time is taken, so that a neighbour on the machine
/// disturbs little; no contestant waits for anything but memory.
class MedianReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    const std::map<std::string, double>& medians() const { return medians_; }

private:
    std::map<std::string, double> medians_;
};

/// Prints one row a ratio whose two benchmarks have run. False when one that must hold does not.
bool PrintRatios(const std::vector<Ratio>& ratios, const std::map<std::string, double>& medians);

} // namespace qrtVistrelClasses4::bench
