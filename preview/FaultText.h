// What a preview could not show, for a person.
#pragma once

#include <qrtVistrelClasses4/PreviewFault.h>

#include <string>

namespace qrtVistrelClasses4 {

/// What is wrong, in UTF-8, without frame and line. `reason` is why a font cannot be read.
std::string TextOfFault(const PreviewFault& fault, const std::string& reason);

} // namespace qrtVistrelClasses4
