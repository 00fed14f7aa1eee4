// Pictures as PNG.
#pragma once

#include "fonts/PixelBuffer.h"

#include <string>

namespace qrtVistrelClasses4 {

/// The bytes of a PNG file with the picture, which has a pixel at least. Up to 256 colours are kept in a
/// palette. Throws `RuntimeError` when memory does not suffice.
std::string EncodePng(const PixelBuffer& picture);

} // namespace qrtVistrelClasses4
