// What a sign shows of a picture.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

namespace qrtVistrelClasses4 {

struct SignLook;

/// The dots that a sign lights for the upper left part of a picture, at most `most`; 0 for those that stay
/// dark, as nearly black pixels do. A sign of one colour can only light a dot or not: of two brightnesses it
/// shows the higher one, and more of them are dithered, except that nearly white pixels are all lit.
Raster DotsOf(const Raster& picture, DotSize most, const SignLook& sign);

} // namespace qrtVistrelClasses4
