// Fonts that the program reads, in either layout.
#pragma once

#include "fonts/FontFile.h"
#include "fonts/clsFontSizes.h"
#include "tools/program/ErrorLines.h"

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Size of the numbered font whose file has this name, in any case. Such a file has no header. Any other font
/// should have one, because its name does not give its size.
std::optional<CellSize> SizeOfNumberedFont(std::string_view path);

/// "6 x 8".
std::string SizeText(CellSize size);

/// Reads a font without a header if `size` or the file's name gives its size, else one with a header. Adds an
/// error and returns nothing if the file is no font, or none of that size. If only its name does not suit, or
/// its length does not suit its name, adds an error and returns the font.
std::optional<Font> OpenFont(const std::string& path, const std::optional<CellSize>& size,
                             ErrorLines& errors);

/// Why the file is not a whole font of the layout that the library reads: without a header if the letters
/// have a `size`, else with one. Nothing if it is. Throws errors of the file system.
std::optional<std::string> FaultOfFont(const std::string& path, const std::optional<CellSize>& size);

/// The font that the file holds, if it has the length of one: a font with a header, or else one without a
/// header whose letters have the size. Nothing if there is no such file.
std::optional<Font> PresentFont(const std::string& path, CellSize size);

} // namespace qrtVistrelClasses4
