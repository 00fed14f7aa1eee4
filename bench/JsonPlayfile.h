// The playfile's data as JSON, for the parser that it is measured against.
#pragma once

#include "bench/SamplePlayfile.h"

#include <cstddef>
#include <string>

namespace qrtVistrelClasses4::bench {

/// An array of frames, each an object with its values by name, "Lines" being an array of such objects.
std::string MakeJson(const Frames& frames);

/// A summary of what was read, to check that nothing is missing.
struct JsonContents {
    std::size_t frames = 0;
    std::size_t lines = 0;
    std::size_t textSize = 0; ///< Of the texts of all lines.
    double delaySeconds = 0;  ///< Of all frames.

    bool operator==(const JsonContents&) const = default;
};

JsonContents ReadJson(const std::string& path);

} // namespace qrtVistrelClasses4::bench
