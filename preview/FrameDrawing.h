// The parts of frames, drawn as dots.
#pragma once

#include "media/PictureCache.h"
#include "playfile/ShownLines.h"
#include "preview/FilmClock.h"
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/PixelBuffer.h>
#include <qrtVistrelClasses4/PreviewFault.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// A line of a frame with all that is needed to draw it.
struct LineOnSign {
    const LineRecord* line; ///< In the frame.
    FontCache::FontPointer font;
    std::int32_t top;       ///< Of the line.
    bool isLowered;         ///< Whether its letters are one row lower, in the middle of an inverse line.
    bool showsTime = false; ///< Whether it has a clock or a date.
    std::string text;       ///< As it is shown.
    std::int64_t width;     ///< Of the text in dots.
};

/// The time in which a picture does not change, of what moves since its frame is seen.
struct StillTime {
    Micros start = 0;
    Micros end = kNever;

    bool has(Micros moment) const { return moment >= start && moment < end; }
};

/// Draws frames as a whole or part by part. Loads each font and each picture once.
class FrameDrawing {
public:
    FrameDrawing(const SignLook& sign, CommandTable commands)
        : sign_(sign), lines_(sign.type, std::move(commands)) {}

    /// What clocks and dates show from now on.
    void setMoment(std::chrono::local_seconds moment) { lines_.setMoment(moment); }

    /// See `FramePainter::sizeFor`.
    DotSize sizeFor(const OneBasedArray<FrameRecord>& frames);

    /// Draws a frame as a still picture, with lines that scroll from their start, and notes its faults.
    void draw(std::int32_t number, const FrameRecord& frame, PixelBuffer& dots);
    /// The faults since the last call.
    std::vector<PreviewFault> takeFaults();

    // The parts of a frame, in the order in which they are drawn. They note no faults.

    /// The colour of all dots below a frame that is not drawn over the one before it.
    Color backgroundOf(const FrameRecord& frame) const;
    /// Draws the frame's picture, or a box with the name of its file, if it has one. A picture that moves is
    /// drawn as it is when the frame has been shown for some time. Returns the time in which the same is
    /// drawn.
    StillTime drawMedium(const FrameRecord& frame, Micros shown, PixelBuffer& dots);
    /// The lines that start in the first `rows` rows of dots. The frame must outlive them.
    std::vector<LineOnSign> linesOf(const FrameRecord& frame, std::int32_t rows);
    /// Draws the bar of an inverse line; other lines have none.
    void drawBar(const LineOnSign& line, PixelBuffer& dots) const;
    /// Draws the letters of a line, which start at `left`; only those that can be seen take time.
    void drawLetters(const LineOnSign& line, std::int64_t left, PixelBuffer& dots) const;

private:
    DotSize sizeOf(const FrameRecord& frame);
    DotSize sizeOfLines(const FrameRecord& frame);
    DotSize sizeOfMedium(const std::string& path);
    void drawBox(std::string_view label, PixelBuffer& dots) const;
    LineOnSign lineOf(const PlacedLine& placed);
    void noteFaultsOfFile(const std::string& path);
    void drawLines(const FrameRecord& frame, PixelBuffer& dots);
    void drawLine(const PlacedLine& placed, PixelBuffer& dots);
    void addFault(PreviewFault::What what, std::string name, std::int32_t line);
    void collectFaults();

    SignLook sign_;
    PictureCache pictures_;
    ShownLines lines_;
    std::vector<PreviewFault> faults_;
    std::int32_t frame_ = 0; ///< Number of the frame that is drawn.
};

} // namespace qrtVistrelClasses4
