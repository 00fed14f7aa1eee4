// Names in the 8-bit encoding of this machine: Windows-1252, on Windows the system's ANSI code page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Whether names of files are in UTF-8. On POSIX systems, most names on disks are, but none has to be. On
/// Windows, they are in UTF-8 in a program that calls `StartProgram`, since only UTF-8 has a text for every
/// name. In other people's programs they are in the ANSI code page, which the applications there use.
bool AreNamesUtf8();

/// Removes the first character of `name`, which is not empty, and returns it in UTF-8.
std::string TakeCodePageCharacter(std::string_view& name);

/// No value if the encoding lacks a character of `utf8`.
std::optional<std::string> CodePageFromUtf8(std::string_view utf8);

} // namespace qrtVistrelClasses4
