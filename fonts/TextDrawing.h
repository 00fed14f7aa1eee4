// Texts in a font: their widths, their dots, and the marks on them.
#pragma once

#include "fonts/FontFile.h"
#include <qrtVistrelClasses4/DrawingTarget.h>

#include <bitset>
#include <cstdint>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A font as it is drawn. Characters without a glyph are not drawn and have no width.
struct Lettering {
    const Font& font;
    std::int16_t magnification =
        1;           ///< Pixels from one dot to the next, across and down. Below 1 nothing is drawn.
    Color color = 0; ///< Colour of lit dots.
};

/// Where a text is drawn. Its first dots are one dot right of `x`.
struct DrawingPlace {
    DrawingTarget& target;
    float x = 0; ///< In pixels; fractions are rounded down.
    float y = 0;
    bool useBitmapDC = false; ///< True to draw on the target's bitmap instead of the target itself.
};

/// Width of a text in pixels, including the gap after its last letter.
std::int64_t WidthOf(const Lettering& lettering, std::string_view text);

/// Whether a text has lit dots in the column `firstColumn` or right of it, in the rows `firstRow` to
/// `lastRow`. Both are counted in dots from 0, from where the text is drawn.
bool HasLitDots(const Font& font, std::string_view text, std::int64_t firstColumn, int firstRow, int lastRow);

/// What came of drawing a text.
struct DrawnText {
    std::int64_t width = 0; ///< In pixels, as `WidthOf` has it.
    /// By code, the characters that the font does not have (see `Font::has`).
    std::bitset<256> lacking = {};
};

/// Draws the letters of a text side by side, taking the device context once. If `drawBackground`, dark dots
/// are drawn in the target's background colour. Throws error 6 for pixels whose numbers need more than 32
/// bits, and the errors of the target; the same holds for the functions below.
DrawnText DrawLetters(const Lettering& lettering, std::string_view text, const DrawingPlace& place,
                      bool drawBackground);

/// Draws the cells of the letters `first` to `last` (from 1) of a text, with lit dots in the background
/// colour and all others in the colour of the lettering, gaps included.
void DrawSelection(const Lettering& lettering, std::string_view text, const DrawingPlace& place, int first,
                   int last);

/// Draws a mark before letter `index` (from 1) of a text if `isShown`, else draws what is below the mark. An
/// index below 1 means the start of the text, and one above the number of letters its end. The mark is one
/// dot wide and covers the last column of the letter before it.
void DrawIndexMarker(const Lettering& lettering, std::string_view text, const DrawingPlace& place, int index,
                     bool isShown);

} // namespace qrtVistrelClasses4
