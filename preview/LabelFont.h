// The letters of labels in previews.
#pragma once

#include "fonts/FontFile.h"

namespace qrtVistrelClasses4 {

/// A small font for what a preview adds to the dots of a sign: captions, and the names in boxes. It needs no
/// font files. It has all visible characters of Windows-1252.
const Font& LabelFont();

} // namespace qrtVistrelClasses4
