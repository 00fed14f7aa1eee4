// How near a mistyped name comes to another.
#pragma once

#include <cstddef>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Number of letters to put in, take out or change to make one name of the other, taken without case.
std::size_t NameDistance(std::string_view one, std::string_view other);

} // namespace qrtVistrelClasses4
