// The playfile written with {fmt}: what an application would do without this library.
#pragma once

#include "bench/SamplePlayfile.h"

#include <fmt/format.h>

namespace qrtVistrelClasses4::bench {

/// The whole file, each value by a format string that was compiled with the program.
void FormatPlayfile(const Frames& frames, fmt::memory_buffer& file);
/// The same, at once to a new file in place of the old one.
void SaveWithFmt(const Frames& frames, const std::string& path);

} // namespace qrtVistrelClasses4::bench
