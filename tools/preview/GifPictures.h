// The pictures of GIF files, for previews.
#pragma once

#include <qrtVistrelClasses4/PictureReader.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// An animation moves if its pictures have at most so many pixels together, and are at most so many. Of
/// others only the first picture is read.
inline constexpr std::int64_t kMostAnimationPixels = std::int64_t{8} << 20;
inline constexpr std::int64_t kMostAnimationPictures = 10'000;

/// All pictures of a GIF file as they are seen, each drawn over those before it as the file says. Empty if it
/// is no GIF, is damaged, or is larger than pictures may be.
std::vector<TimedPicture> ReadGif(std::string_view bytes);

} // namespace qrtVistrelClasses4
