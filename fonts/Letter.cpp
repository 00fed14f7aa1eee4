#include "fonts/Letter.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

std::optional<Letter> Letter::find(const Font& font, char character) {
    const std::optional<std::int32_t> offset = font.glyphOffset(character);
    return offset ? at(font, *offset) : std::nullopt;
}

std::optional<Letter> Letter::at(const Font& font, std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= kGlyphStoreSize)
        return std::nullopt;
    return Letter(font, static_cast<std::size_t>(index));
}

Letter::Letter(const Font& font, std::size_t glyph)
    : font_(&font), bitmap_(glyph + 1), isMissing_(font.store[glyph] == 0),
      cellWidth_(font.store[glyph] + (font.height > kHighestWithOwnGap ? kGapAfterLetters : 0)) {}

int Letter::groups() const {
    const int columns = std::min<int>(font_->width, cellWidth_);
    if (columns < 0 || columns > kWidestDrawnCell)
        return 0;
    return std::clamp((columns + kDotsInByte - 1) / kDotsInByte, 1, kMostDrawnColumns / kDotsInByte);
}

} // namespace qrtVistrelClasses4
