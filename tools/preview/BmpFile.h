// Pictures in BMP files.
#pragma once

#include "fonts/PixelBuffer.h"
#include "tools/program/Size.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Pixels along each side of the largest picture that is read; signs are far smaller.
inline constexpr int kLargestBmpSide = 2048;

/// The picture in the bytes of a file. None unless they are all there, uncompressed, in one of the forms with
/// 1, 4, 8, 16, 24 or 32 bits a pixel.
std::optional<PixelBuffer> ParseBmp(std::string_view bytes);

/// As many bytes from the start of a file tell its picture's size.
inline constexpr std::size_t kBmpStart = 66;

/// The size of the picture in a file of `fileSize` bytes that starts with `start`. None where `ParseBmp`
/// finds none.
std::optional<DotSize> BmpSize(std::string_view start, std::uint64_t fileSize);

} // namespace qrtVistrelClasses4
