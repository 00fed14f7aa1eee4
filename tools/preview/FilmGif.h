// Films as animated GIF files.
#pragma once

#include "preview/PictureSize.h"
#include "tools/preview/FilmCut.h"
#include "tools/preview/GifFile.h"
#include <qrtVistrelClasses4/LedPainter.h>

#include <optional>

namespace qrtVistrelClasses4 {

/// How dots become pixels.
struct DotLook {
    bool isPlain = false; ///< Squares without gaps, instead of LEDs.
    int scale = 1;        ///< Pixels from one dot to the next.

    PictureSize sizeOf(DotSize dots) const;
};

/// Writes a file while its film is drawn.
class FilmGif {
public:
    /// The picture of such a look must be one that a `GifWriter` takes. Draws some moments of the film, for
    /// the colours that most pictures have. `file` must outlive this object.
    FilmGif(FilmCut& cut, const DotLook& look, ByteSink& file);

    /// See `GifWriter::add`.
    void add(double from, double until, const Raster& dots);
    void finish() { gif_.finish(); }

private:
    std::vector<Color> commonColors(FilmCut& cut);
    const Raster& draw(const Raster& dots);

    DotLook look_;
    LedPainter leds_;
    Raster picture_;
    GifWriter gif_;
};

} // namespace qrtVistrelClasses4
