// Comparing names without regard to the case of letters.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The upper case of an ASCII letter. Other characters stay as they are.
constexpr char AsciiUpper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

/// The upper case in the Windows-1252 code page.
constexpr char AnsiUpper(char character) {
    const auto code = static_cast<unsigned char>(character);
    switch (code) {
    case 0x9a:
    case 0x9c:
    case 0x9e: // s and z with caron, oe
        return static_cast<char>(code - 0x10);
    case 0xff: // y with diaeresis
        return static_cast<char>(0x9f);
    case 0xf7: // the division sign is among the letters
        return character;
    default:
        return code >= 0xe0 ? static_cast<char>(code - 0x20) : AsciiUpper(character);
    }
}

/// Negative, zero or positive if `left` comes before `right`, is equal to it, or comes after it. The case of
/// ASCII letters is ignored. Shorter texts come before longer ones: this order is for searching, not for
/// showing.
int CompareIgnoringAsciiCase(std::string_view left, std::string_view right);

/// True if the texts are equal, or differ only in the case of ASCII letters.
inline bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
    return CompareIgnoringAsciiCase(left, right) == 0;
}

std::string AnsiUpper(std::string_view text);

/// True if the texts are equal, or differ only in the case of letters of the Windows-1252 code page.
bool EqualIgnoringAnsiCase(std::string_view left, std::string_view right);

} // namespace qrtVistrelClasses4
