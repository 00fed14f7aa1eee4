// Texts for system functions that stop at the first NUL.
#pragma once

#include <string_view>

namespace qrtVistrelClasses4 {

constexpr std::string_view UntilNul(std::string_view text) { return text.substr(0, text.find('\0')); }

} // namespace qrtVistrelClasses4
