// Texts of the library (8-bit, Windows-1252) and names of files for the terminal (UTF-8).
#pragma once

#include "platform/FileNames.h"

#include <qrtVistrelClasses4/Utf8.h>

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `utf8` with a visible sign in place of every control character, and of every byte that is not UTF-8, for
/// the terminal.
std::string Visible(std::string_view utf8);

/// The same for a text of the library.
inline std::string VisibleAnsi(std::string_view ansi) { return Visible(Utf8FromAnsi(ansi)); }
/// The same for the name of a file that a file of the library holds.
inline std::string VisibleName(std::string_view name) { return Visible(Utf8FromName(name)); }

} // namespace qrtVistrelClasses4
