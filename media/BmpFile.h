// Pictures in BMP files.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Pixels along a side of the largest picture that is read. Signs are far smaller.
inline constexpr int kLargestBmpSide = 2048;

/// Reads the picture in the bytes of a file. Returns nothing unless the picture is complete and uncompressed,
/// with 1, 4, 8, 16, 24 or 32 bits a pixel.
std::optional<Raster> ParseBmp(std::string_view bytes);

/// Number of bytes at the start of a file that are enough to find the size of its picture.
inline constexpr std::size_t kBmpStart = 66;

/// Size in pixels of the picture in a file of `fileSize` bytes that starts with `start`. Nothing if
/// `ParseBmp` would return nothing for the file.
std::optional<DotSize> BmpSize(std::string_view start, std::uint64_t fileSize);

} // namespace qrtVistrelClasses4
