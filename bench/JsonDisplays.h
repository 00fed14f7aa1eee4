// The list of signs as JSON, for the parser and the writer that it is measured against.
#pragma once

#include "bench/SampleDisplays.h"

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4::bench {

/// Writes, at once to a new file in place of the old one, an array of signs, each an object with its values
/// by name, "Schedules" being an array of such objects.
void SaveAsJson(const Displays& displays, const std::string& path);

/// All values of a list, added up to see that none is missing.
struct DisplayContents {
    std::size_t texts = 0;
    std::size_t textSize = 0;
    std::size_t numbers = 0;
    std::int64_t sum = 0;
    std::size_t flags = 0;
    std::size_t flagsSet = 0;

    bool operator==(const DisplayContents&) const = default;
};

DisplayContents ContentsOf(const Displays& displays);
DisplayContents ContentsOfJson(const std::string& path);

} // namespace qrtVistrelClasses4::bench
