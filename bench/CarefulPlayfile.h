// What a good programmer would write by hand for playfiles alone: no trace, no error trap, no way to put
// another machine in the place of this one.
#pragma once

#include "bench/SamplePlayfile.h"

#include <string>

namespace qrtVistrelClasses4::bench {

/// Reads the file at once and looks for its references. Each different one is looked for once, and the folder
/// of the playfile is listed once.
Frames LoadCarefully(const std::string& path);

/// Formats all frames in memory, asks for the drive of each folder that is referred to once, and writes as
/// `WriteDurably` does.
void SaveCarefully(const Frames& frames, const std::string& path);

/// Formats the XML export in memory and writes it as `WriteDurably` does.
void ExportCarefully(const Frames& frames, const std::string& path);

} // namespace qrtVistrelClasses4::bench
