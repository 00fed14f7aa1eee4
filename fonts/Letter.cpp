#include "fonts/Letter.h"

#include "fonts/ExtendedFont.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

std::optional<Letter> Letter::find(const Font& font, char character) {
    const std::int32_t offset = font.glyphOffset(character).value_or(-1);
    std::span<const std::uint8_t> glyph;
    if (offset >= 0 && static_cast<std::size_t>(offset) < font.store.size())
        glyph = std::span(font.store).subspan(static_cast<std::size_t>(offset));
    if (font.extended && (glyph.empty() || glyph.front() == 0))
        glyph = font.extended->find(GlyphCode(character)).value_or(glyph);
    return glyph.empty() ? std::nullopt : std::optional(Letter(font, glyph));
}

Letter::Letter(const Font& font, std::span<const std::uint8_t> glyph)
    : font_(&font), dots_(glyph.subspan(1)), isMissing_(glyph.front() == 0),
      cellWidth_(glyph.front() + (font.height > kHighestWithOwnGap ? kGapAfterLetters : 0)) {}

int Letter::groups() const {
    const int columns = std::min<int>(font_->width, cellWidth_);
    if (columns < 0 || columns > kWidestDrawnCell)
        return 0;
    return std::clamp((columns + kDotsInByte - 1) / kDotsInByte, 1, kMostDrawnColumns / kDotsInByte);
}

} // namespace qrtVistrelClasses4
