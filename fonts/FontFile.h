// Fonts as they lie in files and in memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

inline constexpr std::size_t kGlyphStoreSize = 16301;

/// Bytes of a file that matter at the most: four of sizes, the characters, the store.
inline constexpr std::size_t kLargestFontFile = 4 + 255 + kGlyphStoreSize;

/// In the place of width and height: the file tells them.
inline constexpr std::int16_t kSizeFromFile = -1;

/// A font. Sizes are in dots. A glyph is a byte with the letter's own width, then the bytes of dots: for each
/// row, from the top, that of columns 1 to 8, then in the same way those of columns 9 to 16, and so on. The
/// leftmost dot of a byte is its highest bit; a set bit is a lit dot.
struct Font {
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::string characters; ///< In the order of their glyphs.
    std::array<std::uint8_t, kGlyphStoreSize> store{};

    /// As files are made: 1 from a width of 4, 2 from 12, 3 from 20, 4 from 28; 0 below.
    int bytesPerRow() const { return (width + width % 8) / 8; }
    /// Bytes from one glyph to the next.
    int recordSize() const { return bytesPerRow() * height + 1; }
    /// Index of the glyph's first byte in the store, or beyond its end; below 0 when there is none. Character
    /// 166 has the glyph of 127. Without characters the glyphs are those from 32 on.
    std::int32_t glyphOffset(char character) const;
};

/// A font of the characters 32 to 127, whose file holds nothing but the store; or with both sizes
/// `kSizeFromFile` one whose file starts with sizes and characters. Bytes missing at the end of the store
/// read 0, more than it takes are ignored. None when the file ends before its store starts.
std::optional<Font> ParseFont(std::string_view bytes, std::int16_t width, std::int16_t height);

/// The file of a font of the characters 32 to 127, without sizes and characters.
std::string SizedFontBytes(const Font& font);
/// The file that starts with them. Error 6 for a width or a height beyond 255, or more than 255 characters.
std::string HeaderFontBytes(const Font& font);

} // namespace qrtVistrelClasses4
