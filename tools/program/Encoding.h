// Texts between the library (8-bit, Windows-1252) and the terminal (UTF-8).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Every byte is one character; the five that the code page leaves undefined (81, 8D, 8F, 90, 9D) become the
/// control characters of the same number, so that nothing is lost.
std::string Utf8FromAnsi(std::string_view ansi);

/// The reverse of `Utf8FromAnsi`. Returns nothing if `utf8` is not UTF-8 or has a character that the code
/// page lacks.
std::optional<std::string> AnsiFromUtf8(std::string_view utf8);

/// `utf8` with a visible sign in place of every control character, and of every byte that is not UTF-8, for
/// the terminal.
std::string Visible(std::string_view utf8);

/// The same for a text of the library.
inline std::string VisibleAnsi(std::string_view ansi) { return Visible(Utf8FromAnsi(ansi)); }

} // namespace qrtVistrelClasses4
