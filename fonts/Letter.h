// One letter of a font, as it is drawn and measured.
#pragma once

#include "fonts/FontFile.h"

#include <cstdint>
#include <optional>

namespace qrtVistrelClasses4 {

inline constexpr int kDotsInByte = 8;

/// Fonts up to this height have the gap between letters in the letters, as their last column. Behind letters
/// of higher ones a gap of `kGapBehindLetters` is added.
inline constexpr int kHighestWithOwnGap = 8;
inline constexpr int kGapBehindLetters = 3;

inline constexpr int kWidestDrawnCell = 100; ///< Cells that are wider have no dots.
inline constexpr int kMostDrawnColumns = 24; ///< Of a letter.

/// Refers to its font. Columns of dots are numbered from 0, in groups of eight; rows from 0, from the top.
class Letter {
public:
    /// None for a character without a glyph in the font's store.
    static std::optional<Letter> find(const Font& font, char character);

    /// Columns that the letter takes in a text. Large fonts have a gap behind each letter.
    int cellWidth() const { return cellWidth_; }
    int rows() const { return font_->height; }
    /// Groups of columns that are drawn.
    int groups() const;
    /// The dots of a group in a row, the leftmost in the highest bit. None beyond the end of the store.
    std::optional<std::uint8_t> dots(int group, int row) const;

private:
    Letter(const Font& font, std::size_t glyph);

    const Font* font_;
    std::size_t bitmap_; ///< Index of the first byte of dots.
    int cellWidth_;
};

} // namespace qrtVistrelClasses4
