// Pictures in BMP files.
#pragma once

#include "fonts/PixelBuffer.h"

#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Pixels along each side of the largest picture that is read; signs are far smaller.
inline constexpr int kLargestBmpSide = 2048;

/// The picture in the bytes of a file. None unless they are all there, uncompressed, in one of the forms with
/// 1, 4, 8, 16, 24 or 32 bits a pixel.
std::optional<PixelBuffer> ParseBmp(std::string_view bytes);

} // namespace qrtVistrelClasses4
