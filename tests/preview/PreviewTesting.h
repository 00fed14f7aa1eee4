// What the tests of previews share.
#pragma once

#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/Raster.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

/// A line in the font of a file, or of a number of one digit.
inline LineRecord line(const std::string& text, const std::string& font = "tiny",
                       bool LineRecord::*flag = nullptr) {
    LineRecord line;
    line.CurrentLineText = text;
    line.LineFontSize = static_cast<std::int16_t>(font.size() == 1 ? font[0] - '0' : 12);
    line.LineCustomFont = font;
    if (flag)
        line.*flag = true;
    return line;
}

/// The same in the font "tiny".
inline LineRecord line(const std::string& text, bool LineRecord::*flag) { return line(text, "tiny", flag); }

/// Rows with blanks between them: "#" for a lit dot, "+" for one at half its brightness or less, "." for a
/// dark one.
inline std::string rowsOf(const Raster& dots) {
    std::string rows;
    for (std::int32_t y = 0; y < dots.height(); ++y) {
        rows += y > 0 ? " " : "";
        for (const Color dot : dots.row(y))
            rows += dot == 0 ? '.' : std::max({RedOf(dot), GreenOf(dot), BlueOf(dot)}) < 128 ? '+' : '#';
    }
    return rows;
}

} // namespace qrtVistrelClasses4
