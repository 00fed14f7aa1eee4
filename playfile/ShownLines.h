// What the lines of frames show: their texts without codes, in their fonts, one below the other.
#pragma once

#include "commands/PreviewText.h"
#include "fonts/FontCache.h"
#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/FrameRecord.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// A line in its place on the sign.
struct PlacedLine {
    std::int32_t number; ///< From 1.
    const LineRecord& line;
    const FontCache::FontPointer& font;
    std::int32_t top; ///< Its first row of dots, from 0.

    std::int32_t height() const { return font->height; }
    std::int32_t bottom() const { return top + height(); } ///< The row below it.
};

/// Loads each font, and looks up each code, once for many frames.
class ShownLines {
public:
    /// Font 5 depends on the type of the sign. The previews of `commands` replace their keys in texts.
    ShownLines(std::int16_t signType, CommandTable commands)
        : fonts_(signType), texts_(std::move(commands), 0) {}

    /// See `TextPreviews::setMoment`.
    void setMoment(std::chrono::local_seconds moment) { texts_.setMoment(moment); }
    /// Whether the line shows a clock or a date.
    bool showsTime(const LineRecord& line) { return texts_.showsTime(line.CurrentLineText); }

    std::string textOf(const LineRecord& line) { return texts_.of(line.CurrentLineText); }
    /// See `FontCache::find`.
    FontCache::FontPointer fontOf(const LineRecord& line) {
        return fonts_.find(line.LineFontSize, line.LineCustomFont);
    }
    /// Width of the line's text in dots, the gap after its last letter included.
    std::int64_t widthOf(const LineRecord& line);

    /// Calls `visit(PlacedLine)` for the lines of a frame from the top, as far as they start in the first
    /// `rows` rows of the sign. Returns the number of the first line that does not; without one, the number
    /// after the last line.
    template <class Visit>
    std::int32_t place(const FrameRecord& frame, std::int32_t rows, Visit visit) {
        std::int32_t number = 1;
        for (std::int32_t top = 0; number <= frame.lines.upperBound() && top < rows; ++number) {
            const LineRecord& line = frame.lines.at(number);
            const FontCache::FontPointer font = fontOf(line);
            visit(PlacedLine{number, line, font, top});
            top += font->height;
        }
        return number;
    }

    /// Whether the letters of a font have no dots, because not even font 0 was found.
    bool isEmpty(const FontCache::FontPointer& font) const { return fonts_.isEmpty(font); }
    /// The fonts that could not be loaded since the last call, each once.
    std::vector<FontFault> takeFaults() { return fonts_.takeFaults(); }

private:
    FontCache fonts_;
    TextPreviews texts_;
};

} // namespace qrtVistrelClasses4
