// Texts in two encodings: Windows-1252, with 8 bits a character, and UTF-8.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <optional>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Every byte is one character; the five that the code page leaves undefined (81, 8D, 8F, 90, 9D) become the
/// control characters of the same number, so that nothing is lost.
QRT_PUBLIC std::string Utf8FromAnsi(std::string_view ansi);

/// The reverse of `Utf8FromAnsi`. Returns nothing if `utf8` is not UTF-8 or has a character that the code
/// page lacks.
QRT_PUBLIC std::optional<std::string> AnsiFromUtf8(std::string_view utf8);

} // namespace qrtVistrelClasses4
