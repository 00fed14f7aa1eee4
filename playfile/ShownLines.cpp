#include "playfile/ShownLines.h"

#include <string_view>

namespace qrtVistrelClasses4 {

std::int64_t ShownLines::widthOf(const LineRecord& line) {
    const FontCache::FontPointer font = fontOf(line);
    std::int64_t width = 0;
    texts_.piecesOf(line.CurrentLineText, [&](std::string_view piece) { width += font->widthOf(piece); });
    return width;
}

} // namespace qrtVistrelClasses4
