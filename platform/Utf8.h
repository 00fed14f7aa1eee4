// Characters of texts in UTF-8.
#pragma once

#include <qrtVistrelClasses4/Utf8.h>

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Removes the first character of `utf8`, which is not empty, and returns it. Returns nothing if there is no
/// whole character.
std::optional<char32_t> TakeUtf8Character(std::string_view& utf8);

/// Adds a character.
void AppendUtf8(std::string& text, char32_t character);

/// The code of a character in Windows-1252, as by `AnsiFromUtf8`; nothing if the code page lacks it.
std::optional<char> AnsiFromCharacter(char32_t character);

} // namespace qrtVistrelClasses4
