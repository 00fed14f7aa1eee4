// Fonts in the Bitmap Distribution Format (BDF), in which other programs exchange bitmap fonts.
#pragma once

#include "tools/fonts/FontPictures.h"

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Whether a text begins as a BDF font does.
bool IsBdf(std::string_view text);

/// Reads the letters whose characters Windows-1252 has; others are left out. The cell is as high as the
/// font's bounding box, and as wide unless the letters need more. In fonts up to 8 dots high, the advance of
/// a letter is its width, and otherwise that without the gap that is added when letters are drawn. A letter
/// that reaches beyond its advance is as wide as its dots; one that starts left of its place is moved right.
/// If a line is wrong, adds an error about the first such line and returns nothing.
std::optional<FontPictures> ReadBdf(std::string_view text, ErrorLines& errors);

/// The text of a BDF font that reads back as `font`, with characters of Unicode. `name` is a part of the
/// font's name there.
std::string BdfText(const FontPictures& font, std::string_view name);

} // namespace qrtVistrelClasses4
