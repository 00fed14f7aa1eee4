// Many frames in one picture.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/LedPainter.h>
#include <qrtVistrelClasses4/OneBasedArray.h>
#include <qrtVistrelClasses4/PixelBuffer.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

class FramePainter;

/// Frames in rows, each below its caption. A sheet is drawn in strips of a few rows of pixels, so that it
/// takes little memory no matter how many frames it has.
class FrameSheet {
public:
    /// A sheet for `frames` frames (at least 1) of a sign of `sign` dots; for `scale` see `LedPainter`.
    /// Captions grow with it.
    FrameSheet(std::int32_t frames, DotSize sign, int scale);

    /// Size of the sheet in pixels. It may be larger than a picture can be.
    std::int64_t width() const;
    std::int64_t height() const;

    /// Returns the caption of a frame, whose number starts at 1.
    using CaptionOf = std::function<std::string(std::int32_t number)>;
    /// Receives the next rows of pixels of the sheet, from the top. Each strip is as wide as the sheet, and
    /// is valid during the call.
    using OnStrip = std::function<void(const Raster& strip)>;
    /// Draws the sheet, with the first frames of `frames`, by `painter`. A caption that is too long is cut
    /// off. Width and height must fit into 32 bits. Throws error 9 if there are fewer frames than the sheet
    /// is for.
    void draw(const OneBasedArray<FrameRecord>& frames, FramePainter& painter, const CaptionOf& captionOf,
              const OnStrip& onStrip);

private:
    /// A frame with its caption and the space to the next ones, without the space above and to the left.
    struct Cell {
        std::string caption;
        Raster dots;
    };

    void drawCells(const std::vector<Cell>& cells, const OnStrip& onStrip);
    PixelBuffer emptyStrip(std::int32_t height) const;

    DotSize sign_;
    LedPainter leds_;
    std::int16_t captionScale_;
    std::int32_t captionHeight_;
    std::int64_t cellWidth_;
    std::int64_t cellHeight_;
    std::int32_t frames_;
    std::int64_t columns_;
};

} // namespace qrtVistrelClasses4
