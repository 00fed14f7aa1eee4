// Frames as the dots of a sign.
#pragma once

#include "commands/PreviewText.h"
#include "fonts/PixelBuffer.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/FrameRecord.h"
#include "tools/preview/FontShelf.h"
#include "tools/preview/PictureFiles.h"
#include "tools/preview/SignLook.h"

#include <cstdint>
#include <functional>
#include <string>

namespace qrtVistrelClasses4 {

/// All frames of a playfile, with what of them can be seen. Moves the cursors.
OneBasedArray<FrameRecord> ReadFrames(FrameInfoClass& playfile);

/// Whether the lines of the frame are drawn.
bool HasText(const FrameRecord& frame);

/// Draws frames of playfiles. A dot of the buffers is its colour, 0 for a dark one.
class FramePainter {
public:
    /// `errors` hears of fonts that are missing and pictures that cannot be read, and must outlive the
    /// painter.
    FramePainter(const SignLook& sign, ErrorLines& errors);

    /// Size of a sign that shows all that stands still in the frames, within that of the largest signs.
    DotSize sizeFor(const OneBasedArray<FrameRecord>& frames);

    using Show = std::function<void(std::int32_t number, const PixelBuffer& dots)>;
    /// Shows the frames `first` to `last`, each over the one before when it is an overlay.
    void show(const OneBasedArray<FrameRecord>& frames, std::int32_t first, std::int32_t last, DotSize size,
              const Show& show);

    FontShelf& fonts() { return fonts_; }

private:
    DotSize sizeOf(const FrameRecord& frame);
    DotSize sizeOfLines(const FrameRecord& frame);
    DotSize sizeOfMedium(const std::string& path);
    void draw(const FrameRecord& frame, PixelBuffer& dots);
    void drawLines(const FrameRecord& frame, PixelBuffer& dots);
    /// A picture, or a box with the name of a file that cannot be drawn.
    void drawMedium(const std::string& path, PixelBuffer& dots);
    void drawPicture(const PixelBuffer& picture, PixelBuffer& dots) const;
    void drawBox(const std::string& label, PixelBuffer& dots);
    FontShelf::FontPointer fontOf(const LineRecord& line) {
        return fonts_.find(line.LineFontSize, line.LineCustomFont);
    }

    SignLook sign_;
    FontShelf fonts_;
    PictureFiles pictures_;
    TextPreviews texts_{0};
};

} // namespace qrtVistrelClasses4
