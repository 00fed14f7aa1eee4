// The letters of a font in the terminal.
#pragma once

#include "tools/fonts/FontPictures.h"

#include <ostream>
#include <string>

namespace qrtVistrelClasses4 {

/// The character of a code, in UTF-8.
std::string CharacterText(unsigned char code);

void PrintLetters(std::ostream& out, const FontPictures& font);

} // namespace qrtVistrelClasses4
