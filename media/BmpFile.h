// Pictures in BMP files.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Reads the picture in the bytes of a file. Returns nothing unless the picture is complete and uncompressed,
/// with 1, 4, 8, 16, 24 or 32 bits a pixel, and at most `kLargestPictureSide` pixels along a side.
std::optional<Raster> ParseBmp(std::string_view bytes);

/// Number of bytes at the start of a file that are enough to find the size of its picture.
inline constexpr std::size_t kBmpStart = 66;

/// Size in pixels of the picture in a file of `fileSize` bytes that starts with `start`. Nothing if
/// `ParseBmp` would return nothing for the file.
std::optional<DotSize> BmpSize(std::string_view start, std::uint64_t fileSize);

/// The start of a file with a picture of `size` pixels, at least 1 along each side. Its rows follow, as
/// `BmpRows` returns them, from the lowest piece of the picture to the topmost one.
std::string BmpHeader(DotSize size);
/// A piece of such a picture, as wide as the picture.
std::string BmpRows(const Raster& piece);

} // namespace qrtVistrelClasses4
