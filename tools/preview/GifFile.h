// Animated GIF files.
#pragma once

#include "platform/FileSystem.h"
#include <qrtVistrelClasses4/Color.h>
#include <qrtVistrelClasses4/Raster.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace qrtVistrelClasses4 {

/// Writes one picture after the other, of each only the rectangle that has changed, and in it only the pixels
/// that have. Takes as much memory however many there are. Viewers show the pictures for ever, from the first
/// one again after the last one.
///
/// Pictures have their true colours, unless more than `kMostColors` of them are new at once: then likenesses
/// take their place.
class GifWriter {
public:
    static constexpr std::int64_t kLargestSide = 65535;
    /// One number less than there are, which is that of the pixels that stay.
    static constexpr std::size_t kMostColors = 255;

    /// Writes what is in front of the pictures. Pictures whose new pixels have none but `common` colours, of
    /// which the first `kMostColors` count, need no list of their own. `file` must outlive this object. All
    /// functions throw the errors of the file, and error 7 without memory.
    GifWriter(DotSize size, const std::vector<Color>& common, ByteSink& file);
    ~GifWriter();
    GifWriter(const GifWriter&) = delete;
    GifWriter& operator=(const GifWriter&) = delete;

    /// Adds what is shown from one moment until another, in seconds, the first one from 0 on, and each other
    /// one from the end of the one before. Files have hundredths of a second: a picture that takes none of
    /// them is left out, unless it is the first one.
    void add(double from, double until, const Raster& pixels);
    void finish();

private:
    class Encoder;
    std::unique_ptr<Encoder> encoder_;
};

} // namespace qrtVistrelClasses4
