// Many frames in one picture.
#pragma once

#include "fonts/PixelBuffer.h"
#include "fonts/classFontMaster.h"
#include "tools/preview/LedPicture.h"
#include "tools/preview/SignLook.h"

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

/// Frames in rows, each below its caption.
class FrameSheet {
public:
    FrameSheet(std::int32_t frames, DotSize sign, int scale);

    /// Size of the sheet in pixels.
    std::int64_t width() const;
    std::int64_t height() const;

    PixelBuffer empty() const;
    /// Draws the next frame.
    void add(const std::string& caption, const PixelBuffer& dots, classFontMaster& captionFont,
             PixelBuffer& sheet);

private:
    LedPainter painter_;
    std::int16_t captionScale_;
    std::int64_t cellWidth_; ///< Of a frame, with its caption and the space to the next one.
    std::int64_t cellHeight_;
    std::int64_t columns_;
    std::int64_t rows_;
    std::int64_t added_ = 0;
};

} // namespace qrtVistrelClasses4
