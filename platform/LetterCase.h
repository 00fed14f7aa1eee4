// Comparing names without regard to the case of letters.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

constexpr bool IsAscii(char character) { return static_cast<unsigned char>(character) < 0x80; }

/// The upper case of an ASCII letter. Other characters stay as they are.
constexpr char AsciiUpper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

/// Negative, zero or positive if `left` comes before `right`, is equal to it, or comes after it. The case of
/// ASCII letters is ignored. Shorter texts come before longer ones: this order is for searching, not for
/// showing.
int CompareIgnoringAsciiCase(std::string_view left, std::string_view right);

/// True if the texts are equal, or differ only in the case of ASCII letters.
inline bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && CompareIgnoringAsciiCase(left, right) == 0;
}

/// The upper case of all letters of the ANSI code page: on Windows that of the system, elsewhere
/// Windows-1252. The text keeps its size.
std::string AnsiUpperCase(std::string_view text);

/// True if `AnsiUpperCase` makes the texts equal.
bool EqualIgnoringAnsiCase(std::string_view left, std::string_view right);

} // namespace qrtVistrelClasses4
