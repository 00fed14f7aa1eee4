// Large letters, made from small ones.
#pragma once

#include "tools/fonts/FontPictures.h"

namespace qrtVistrelClasses4 {

/// `letter` with `factor` dots in the place of one, across and down. Where dots touch by their corners alone
/// the stroke goes on slanted, as thick as elsewhere, and the corners outside it are rounded.
Picture Enlarged(const Picture& letter, int factor);

/// The letters for cells of `cell`, each as many times larger as the cell is higher. The gaps that are part
/// of small letters go when those made of them are too high to have them. None after telling why, when no
/// whole number of times gives that height, or when a letter would be wider than is drawn.
std::optional<FontPictures> Enlarged(const FontPictures& font, CellSize cell, ErrorLines& errors);

} // namespace qrtVistrelClasses4
