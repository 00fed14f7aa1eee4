// What playfiles are examined by on this machine.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/Validation.h>

namespace qrtVistrelClasses4 {

/// The size and the delays of the preferences, the optional effects and the stored commands. Adds an error
/// for each that cannot be used as it is.
ValidationCircumstances LoadValidationCircumstances(ErrorLines& errors);

/// Uses the type and the colours of a sign, and its size if it has one.
void UseSign(const DisplayRecord& sign, ValidationCircumstances& circumstances);

} // namespace qrtVistrelClasses4
