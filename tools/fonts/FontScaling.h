// Large letters made from small ones.
#pragma once

#include "tools/fonts/FontPictures.h"

namespace qrtVistrelClasses4 {

/// Enlarges a letter: each dot becomes `factor` dots across and down. If dots touch only at their corners,
/// they are joined by a slanted stroke as thick as the others, and the corners outside it are rounded.
Picture Enlarged(const Picture& letter, int factor);

/// Enlarges letters for cells of `cell`, each as many times as the cell is higher. If small letters contain
/// the gap to the next one and large letters do not, it is removed. Adds an error and returns nothing if the
/// new height is not a multiple of the old one, or if a letter would be too wide to be drawn.
std::optional<FontPictures> Enlarged(const FontPictures& font, CellSize cell, ErrorLines& errors);

} // namespace qrtVistrelClasses4
