// One letter of a font, for drawing and measuring.
#pragma once

#include "fonts/FontFile.h"

#include <cstdint>
#include <optional>

namespace qrtVistrelClasses4 {

inline constexpr int kDotsInByte = 8;

/// In fonts up to this height, the last column of a letter is the gap to the next. In higher fonts, a gap of
/// `kGapAfterLetters` is added after each letter.
inline constexpr int kHighestWithOwnGap = 8;
inline constexpr int kGapAfterLetters = 3;

inline constexpr int kWidestDrawnCell = 100; ///< Wider cells stay empty.
inline constexpr int kMostDrawnColumns = 24; ///< Further columns of a letter are not drawn.

/// Refers to its font, which must outlive it. Columns and rows are numbered from 0, from the left and from
/// the top. Columns come in groups of eight.
class Letter {
public:
    /// Nothing for a character without a glyph in the font's store.
    static std::optional<Letter> find(const Font& font, char character);
    /// The letter whose glyph starts at `index` of the font's store. Nothing for an index outside the store.
    static std::optional<Letter> at(const Font& font, std::int32_t index);

    /// Columns that the letter takes in a text, including the gap after it.
    int cellWidth() const { return cellWidth_; }
    int rows() const { return font_->height; }
    /// True if the glyph is 0 dots wide, as those are that a file leaves out.
    bool isMissing() const { return isMissing_; }
    /// Number of groups that are drawn.
    int groups() const;
    /// The dots of a group in a row, the leftmost in the highest bit. Nothing beyond the end of the store.
    std::optional<std::uint8_t> dots(int group, int row) const {
        const std::size_t index = bitmap_ + static_cast<std::size_t>(group * font_->height + row);
        return index < kGlyphStoreSize ? std::optional(font_->store[index]) : std::nullopt;
    }

private:
    Letter(const Font& font, std::size_t glyph);

    const Font* font_;
    std::size_t bitmap_; ///< Index of the first byte of dots.
    bool isMissing_;
    int cellWidth_;
};

} // namespace qrtVistrelClasses4
