// What a preview could not show, for a person.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/PreviewFault.h>

#include <vector>

namespace qrtVistrelClasses4 {

/// Adds an error for each font that could not be loaded.
void AddFaults(const std::vector<FontFault>& faults, ErrorLines& errors);

/// Adds an error for each fault. Faults that differ only in their frames make one error together.
void AddFaults(const std::vector<PreviewFault>& faults, ErrorLines& errors);

} // namespace qrtVistrelClasses4
