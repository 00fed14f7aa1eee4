// Small things done to 8-bit texts.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `text` without the blanks (no other white space) at both ends.
std::string_view Trim(std::string_view text);

/// `text` with the letters a to z as capitals.
std::string UpperCaseAscii(std::string_view text);

/// Whether the texts differ in nothing but the case of the letters A to Z.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

} // namespace qrtVistrelClasses4
