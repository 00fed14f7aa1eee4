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

/// The beginning of a long text, and "..."; a short text as it is.
std::string Abridged(std::string_view utf8);

/// Whether a text begins with the mark of UTF-16, in which nothing that the program reads is.
bool IsUtf16(std::string_view text);
bool IsUtf8(std::string_view text);

inline constexpr std::string_view kNotUtf8 = "is not in UTF-8";
/// Why a text cannot be one of the library: "is not in UTF-8", or the first character that Windows-1252
/// lacks. Empty if it can.
std::string WhyNotAnsi(std::string_view utf8);

/// The same as `Visible` for a text of the library.
inline std::string VisibleAnsi(std::string_view ansi) { return Visible(Utf8FromAnsi(ansi)); }
/// The same for the name of a file that a file of the library holds.
inline std::string VisibleName(std::string_view name) { return Visible(Utf8FromName(name)); }

} // namespace qrtVistrelClasses4
