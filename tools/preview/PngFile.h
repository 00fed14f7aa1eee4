// Pictures in PNG files.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <string>

namespace qrtVistrelClasses4 {

/// The bytes of a PNG file. The picture must have at least one pixel. Up to 256 colours are stored in a
/// palette. Throws `RuntimeError` if memory runs out.
std::string EncodePng(const Raster& picture);

} // namespace qrtVistrelClasses4
