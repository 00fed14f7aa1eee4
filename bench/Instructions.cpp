#include "bench/Instructions.h"

#include "bench/Ratio.h"

#include <cstdlib>
#include <fstream>

namespace qrtVistrelClasses4::bench {

std::string CountsFile() {
    const char* const path = std::getenv("QRT_BENCH_COUNTS");
    return path ? path : "";
}

double TakeInstructions() {
    static int dumps = 0;
    CALLGRIND_DUMP_STATS_AT("bench");
    const std::string path = CountsFile() + '.' + std::to_string(++dumps);
    std::ifstream file(path);
    double count = -1;
    for (std::string word; file >> word;)
        if (word == "totals:")
            file >> count;
    Require(count >= 0, "callgrind has not written " + path);
    return count;
}

} // namespace qrtVistrelClasses4::bench
