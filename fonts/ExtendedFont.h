// Extended fonts: letters for the characters that a font lacks, in a file with their places and one with
// their dots.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// A letter with rows of its own. `dots` has its bytes in the order of a font's glyph, without the width.
struct ExtendedLetter {
    unsigned char code = 0;
    std::uint8_t width = 0; ///< In dots, from 1.
    std::uint8_t height = 0;
    std::string dots;
};

/// The bytes of the two files of an extended font.
struct ExtendedFontFiles {
    std::string index;
    std::string dots;
};

inline constexpr std::size_t kLargestExtendedIndex = 6 + std::size_t{256} * 7;
inline constexpr std::size_t kLargestExtendedDots = std::size_t{256} * 32 * 255;

/// Reads an extended font. Nothing if the index is not whole, names a character twice, or has a letter
/// without dots of its own in the other file.
std::optional<std::vector<ExtendedLetter>> ParseExtendedFont(std::string_view index, std::string_view dots);
/// The files that read back as `letters`, which have different codes.
ExtendedFontFiles ExtendedFontBytes(const std::vector<ExtendedLetter>& letters);

/// The letters of one font's extended fonts, ready to be drawn. Each has a width and room for all columns
/// that are drawn, as high as the font.
class ExtendedLetters {
public:
    explicit ExtendedLetters(std::int16_t height);
    /// Adds a letter, unless there is one of its code already. Rows below the font's height are left out.
    void add(const ExtendedLetter& letter);
    /// The letter's own width, and the bytes with its dots in the order of a font's glyph. Nothing for a
    /// character without a letter.
    std::optional<std::span<const std::uint8_t>> find(unsigned char code) const;

private:
    std::size_t recordSize_;
    std::array<std::uint32_t, 256> ends_{}; ///< Where the record of a code ends; 0 if it has none.
    std::vector<std::uint8_t> records_;
};

} // namespace qrtVistrelClasses4
