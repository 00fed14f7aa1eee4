// Reading pictures in files of kinds that the library does not know.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/ScopedInstallation.h>

#include <chrono>
#include <cstdint>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Pixels along a side of the largest picture that is read. Signs are far smaller.
inline constexpr std::int32_t kLargestPictureSide = 2048;

/// A still picture, or one picture of an animation.
struct TimedPicture {
    Raster pixels; ///< Over black.
    /// How much of each pixel covers what is below it, row by row: 255 is all of it. Empty if all pixels
    /// cover it.
    std::vector<std::uint8_t> opacity = {};
    /// How long it is shown until the next one comes, above 0. Means nothing if there is only one.
    std::chrono::milliseconds time = {};
};

/// Reads pictures for previews and for checks of playfiles. The library itself knows BMP files and the first
/// picture of an uncompressed AVI file; it asks for all others. Several threads may ask at the same time.
class PictureReader {
public:
    virtual ~PictureReader() = default;
    /// Whether a file of that name is expected to be of a kind that is read, so that it is a fault if it
    /// cannot be.
    virtual bool readsFiles(std::string_view name) = 0;
    /// The picture in the bytes of a file; all of them in the order of an animation that is to move, which
    /// starts again after the last one. All have the same size, of at most `kLargestPictureSide` along a
    /// side. None if the bytes are of another kind, or cannot be read to their end.
    virtual std::vector<TimedPicture> read(std::string_view bytes) = 0;
};

/// Installs a reader for the whole process. While none is, such files are drawn as boxes with their names.
using ScopedPictureReader = ScopedInstallation<PictureReader>;
template <>
PictureReader*& ScopedPictureReader::installed();

} // namespace qrtVistrelClasses4
