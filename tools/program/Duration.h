// Times as people read them.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

/// "2 min 5.5 s". Rounded to a tenth of a second; from an hour on to a second, and from a day on to a minute.
/// `seconds` must not be negative.
std::string DurationText(double seconds);

} // namespace qrtVistrelClasses4
