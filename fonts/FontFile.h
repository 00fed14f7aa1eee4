// Fonts, in memory and in files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

class ExtendedLetters;

inline constexpr std::size_t kGlyphStoreSize = 16301;

/// No more bytes of a file than these are used: four with the sizes, the characters, and the store.
inline constexpr std::size_t kLargestFontFile = 4 + 255 + kGlyphStoreSize;

/// Passed as width and height if the file holds them.
inline constexpr std::int16_t kSizeFromFile = -1;

/// A font. Sizes are in dots. A glyph starts with a byte that holds the letter's own width. The bytes with
/// its dots follow: first one for columns 1 to 8 of each row, from the top; then one for columns 9 to 16 of
/// each row, and so on. The highest bit of a byte is its leftmost dot. A set bit is a lit dot.
struct Font {
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::string characters; ///< In the order of their glyphs.
    std::array<std::uint8_t, kGlyphStoreSize> store{};
    /// Letters for characters that the store lacks; null if there are none.
    std::shared_ptr<const ExtendedLetters> extended = nullptr;

    /// By the rule of the files: 0 up to a width of 3, 1 up to 11, 2 up to 19, 3 up to 27, and so on.
    int bytesPerRow() const { return (width + width % 8) / 8; }
    /// Bytes from the start of one glyph to that of the next.
    int recordSize() const { return bytesPerRow() * height + 1; }
    /// Index of the glyph's first byte in the store. Nothing for a character that the font lacks. Character
    /// 166 has the glyph of 127. If `characters` is empty, the glyphs are those of 32 and up; the index is
    /// then below 0 for characters below 32. It may also be beyond the end of the store.
    std::optional<std::int32_t> glyphOffset(char character) const;
    /// Whether the font has a letter for the character: an extended one, or a glyph that is in the store and
    /// at least one dot wide.
    bool has(char character) const;
};

/// The code of the glyph that a character is drawn with: its own, except for the broken bar.
unsigned char GlyphCode(char character);

/// Reads a font from the bytes of its file. If both sizes are `kSizeFromFile`, the file starts with the sizes
/// and the characters. Otherwise it holds only the store, and the characters are 32 to 127. Bytes missing at
/// the end of the store are 0; further bytes are ignored. Nothing if the file ends before its store starts.
std::optional<Font> ParseFont(std::string_view bytes, std::int16_t width, std::int16_t height);

/// Whether a file has the length of a font of the layout and size that `ParseFont` would read: whole letters,
/// with a header those that it announces, or a full store. Any other file is either no font or one of the
/// other layout, although `ParseFont` reads it. `bytes` is the whole file, or more of it than
/// `kLargestFontFile`.
bool HasLengthOfFont(std::string_view bytes, std::int16_t width, std::int16_t height);

/// The bytes of a file for a font of the characters 32 to 127, without sizes and characters.
std::string SizedFontBytes(const Font& font);
/// The bytes of a file that starts with sizes and characters. Throws error 6 for a width or height that is
/// not from 0 to 255, and for more than 255 characters.
std::string HeaderFontBytes(const Font& font);

} // namespace qrtVistrelClasses4
