// How similar a mistyped name is to another.
#pragma once

#include <cstddef>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Number of letters to insert, remove or change to turn one name into the other. Case is ignored.
std::size_t NameDistance(std::string_view one, std::string_view other);

} // namespace qrtVistrelClasses4
