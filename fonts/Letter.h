// One letter of a font, for drawing and measuring.
#pragma once

#include "fonts/FontFile.h"

#include <cstdint>
#include <optional>
#include <span>

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
    /// The glyph in the font's store, or the extended letter of a character that has none there or one 0 dots
    /// wide. Nothing for a character without either.
    static std::optional<Letter> find(const Font& font, char character);

    /// Columns that the letter takes in a text, including the gap after it.
    int cellWidth() const { return cellWidth_; }
    int rows() const { return font_->height; }
    /// True if the glyph is 0 dots wide, as those are that a file leaves out.
    bool isMissing() const { return isMissing_; }
    /// Number of groups that are drawn.
    int groups() const;
    /// The dots of a group in a row, the leftmost in the highest bit. Nothing beyond the end of the store.
    std::optional<std::uint8_t> dots(int group, int row) const {
        const auto index = static_cast<std::size_t>(group) * static_cast<std::size_t>(font_->height) +
                           static_cast<std::size_t>(row);
        return index < dots_.size() ? std::optional(dots_[index]) : std::nullopt;
    }

private:
    /// `glyph` starts with the letter's width.
    Letter(const Font& font, std::span<const std::uint8_t> glyph);

    const Font* font_;
    std::span<const std::uint8_t> dots_; ///< Up to the end of the store.
    bool isMissing_;
    int cellWidth_;
};

} // namespace qrtVistrelClasses4
