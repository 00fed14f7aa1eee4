// Bytes in hexadecimal.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Appends the two digits of a byte.
inline void AppendHex(std::string& text, unsigned char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    text += digits[byte >> 4];
    text += digits[byte & 0xf];
}

} // namespace qrtVistrelClasses4
