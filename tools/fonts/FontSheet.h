// All letters of a font in one picture.
#pragma once

#include "tools/fonts/FontPictures.h"
#include <qrtVistrelClasses4/PixelBuffer.h>

namespace qrtVistrelClasses4 {

/// Draws the letters as LEDs, in rows of sixteen, each below its code. The font has at least one letter.
PixelBuffer FontSheet(const FontPictures& font);

} // namespace qrtVistrelClasses4
