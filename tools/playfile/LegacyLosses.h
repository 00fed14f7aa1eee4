// What a playfile of the older format holds that a current one does not keep.
#pragma once

#include "tools/program/Commands.h"

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

/// Prints a line for each loss in the first `frames` frames of the file `name`: keywords and files of unknown
/// kinds, and widths.
void PrintLegacyLosses(const std::string& name, std::int16_t frames, Session& session);

} // namespace qrtVistrelClasses4
