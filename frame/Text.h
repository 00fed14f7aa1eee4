// Small functions on 8-bit texts.
#pragma once

#include <string_view>

namespace qrtVistrelClasses4 {

/// `text` without the blanks (no other white space) at both ends.
std::string_view Trim(std::string_view text);

} // namespace qrtVistrelClasses4
