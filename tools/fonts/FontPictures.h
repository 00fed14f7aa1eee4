// The letters of a font as text pictures, for people to draw.
#pragma once

#include "fonts/ExtendedFont.h"
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

/// Rows of dots from the top, each as many characters long as the letter is wide.
using Picture = std::vector<std::string>;

struct LetterPicture {
    unsigned char code = 0;
    std::size_t line = 0; ///< Line number in the text that it was read from, from 1.
    Picture rows;
};

struct FontPictures {
    CellSize cell;
    std::vector<LetterPicture> letters;
};

/// Largest width and height of a font's cell.
inline constexpr std::int16_t kLargestCellSide = 255;

/// Both sides of `size` must be at most `kLargestCellSide`.
constexpr CellSize CellSizeOf(DotSize size) {
    return {static_cast<std::int16_t>(size.width), static_cast<std::int16_t>(size.height)};
}

/// Reads the pictures of a font. If a line is wrong, adds an error about the first such line and returns
/// nothing.
std::optional<FontPictures> ReadFontPictures(std::string_view text, ErrorLines& errors);
/// The text that reads back as `font`.
std::string FontPicturesText(const FontPictures& font);

/// The letters of a font that can be drawn and are at least one dot wide.
FontPictures PicturesOf(const Font& font);

enum class FontLayout {
    sized, ///< Characters 32 to 127. Those without a picture have no dots, and no width except for the gap in
           ///< high fonts.
    header ///< The characters that have a picture.
};

/// Moves the letters that a font without a header cannot hold into the result.
FontPictures TakeExtendedLetters(FontPictures& pictures);
/// Those letters as an extended font has them. Adds an error and returns nothing if one is too wide to be
/// drawn.
std::optional<std::vector<ExtendedLetter>> ExtendedLettersOf(const FontPictures& pictures,
                                                             ErrorLines& errors);

/// Columns that are drawn of letters in cells of this size. 0 if no font can have such cells.
int DrawnColumns(CellSize cell);

/// Makes a font. Adds an error and returns nothing if no font of that layout can hold the pictures.
std::optional<Font> FontOf(const FontPictures& pictures, FontLayout layout, ErrorLines& errors);

} // namespace qrtVistrelClasses4
