// Names that differ only in the case of their letters.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Upper case of an ASCII letter; every other character as it is.
constexpr char AsciiUpper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

/// Upper case in the Windows-1252 code page.
constexpr char AnsiUpper(char character) {
    const auto code = static_cast<unsigned char>(character);
    switch (code) {
    case 0x9a:
    case 0x9c:
    case 0x9e: // s and z with caron, oe
        return static_cast<char>(code - 0x10);
    case 0xff: // y with diaeresis
        return static_cast<char>(0x9f);
    case 0xf7: // the division sign stands among the letters
        return character;
    default:
        return code >= 0xe0 ? static_cast<char>(code - 0x20) : AsciiUpper(character);
    }
}

/// Negative, zero or positive as `left` stands before, with or behind `right`, ASCII letters taken without
/// case. Shorter texts stand before longer ones: this is an order to search by, not one to show.
int CompareIgnoringAsciiCase(std::string_view left, std::string_view right);

/// Whether the texts differ in nothing but the case of ASCII letters.
inline bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
    return CompareIgnoringAsciiCase(left, right) == 0;
}

std::string AnsiUpper(std::string_view text);

/// Whether the texts differ in nothing but the case of letters of the Windows-1252 code page.
bool EqualIgnoringAnsiCase(std::string_view left, std::string_view right);

} // namespace qrtVistrelClasses4
