// Where the values of a playfile are in its file.
#pragma once

#include <qrtVistrelClasses4/Validation.h>

#include <vector>

namespace qrtVistrelClasses4 {

/// Sets the line in the file of each finding that is about a frame. The findings are in the order of their
/// places. `outcome` is what came of reading the file.
void SetFileLines(const Playfile& playfile, const LoadOutcome& outcome, std::vector<Finding>& findings);

} // namespace qrtVistrelClasses4
