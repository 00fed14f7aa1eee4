// What play times are worked out from on this machine.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/PlayTime.h>

namespace qrtVistrelClasses4 {

/// The size and the speeds of the preferences, the file with speeds of signs, and the stored commands. Adds
/// an error for each that cannot be used as it is.
PlayTimeCircumstances LoadPlayTimeCircumstances(ErrorLines& errors);

/// Uses the type and the speeds of a sign, and its size if it has one.
void UseSign(const DisplayRecord& sign, PlayTimeCircumstances& circumstances);

} // namespace qrtVistrelClasses4
