// Many frames in one picture.
#pragma once

#include <qrtVistrelClasses4/LedPainter.h>
#include <qrtVistrelClasses4/PixelBuffer.h>

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

class FramePainter;

/// Frames in rows, each below its caption.
class FrameSheet {
public:
    /// A sheet for `frames` frames (at least 1) of a sign of `sign` dots; for `scale` see `LedPainter`.
    FrameSheet(std::int32_t frames, DotSize sign, int scale);

    /// Size of the sheet in pixels. It may be larger than a picture can be.
    std::int64_t width() const;
    std::int64_t height() const;

    /// A sheet without frames. Width and height must fit into 32 bits.
    PixelBuffer empty() const;
    /// Draws the next frame, of `dots`, on `sheet`, below its caption in font 0 of `painter`. A caption that
    /// is too long is cut off.
    void add(const std::string& caption, const Raster& dots, FramePainter& painter, PixelBuffer& sheet);

private:
    LedPainter leds_;
    std::int16_t captionScale_;
    std::int64_t cellWidth_; ///< Of a frame with its caption and the space to the next one.
    std::int64_t cellHeight_;
    std::int64_t columns_;
    std::int64_t rows_;
    std::int64_t added_ = 0;
};

} // namespace qrtVistrelClasses4
