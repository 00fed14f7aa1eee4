// The letters of a font as pictures in a text, where people draw them.
#pragma once

#include "fonts/FontFile.h"
#include "fonts/clsFontSizes.h"
#include "tools/program/ErrorLines.h"
#include "tools/program/Size.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

inline constexpr char kLitDot = '#';
inline constexpr char kDarkDot = '.';

/// Rows of dots from the top, as many characters each as the letter is wide.
using Picture = std::vector<std::string>;

struct LetterPicture {
    unsigned char code = 0;
    std::size_t line = 0; ///< Of the text that it was read from, from 1.
    Picture rows;
};

struct FontPictures {
    CellSize cell;
    std::vector<LetterPicture> letters;
};

/// The largest cell that a font can have is as wide and as high.
inline constexpr std::int16_t kLargestCellSide = 255;

/// `size` is one up to `kLargestCellSide`.
constexpr CellSize CellSizeOf(DotSize size) {
    return {static_cast<std::int16_t>(size.width), static_cast<std::int16_t>(size.height)};
}

/// None after telling of the first line that is wrong.
std::optional<FontPictures> ReadFontPictures(std::string_view text, ErrorLines& errors);
/// What reads back as `font`.
std::string FontPicturesText(const FontPictures& font);

/// Every letter of a font that can be drawn and is at least a dot wide.
FontPictures PicturesOf(const Font& font);

enum class FontLayout {
    sized, ///< Characters 32 to 127; those without a picture have no dots and no width, but the gap of high
           ///< fonts.
    header ///< The characters that there are pictures of.
};

/// None after telling what no font of that layout can hold.
std::optional<Font> FontOf(const FontPictures& pictures, FontLayout layout, ErrorLines& errors);

} // namespace qrtVistrelClasses4
