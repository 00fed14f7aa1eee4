// What a good programmer would write by hand for lists of signs alone.
#pragma once

#include "bench/SampleDisplays.h"

#include <string>

namespace qrtVistrelClasses4::bench {

/// Reads the file at once. Values that old files leave empty are mended.
Displays LoadDisplaysCarefully(const std::string& path);

/// Keeps a copy of the file that is there, and writes the new one in its place. Both are flushed.
void SaveDisplaysCarefully(const Displays& displays, const std::string& path);

} // namespace qrtVistrelClasses4::bench
