// Fonts drawn as text, and pixels as text.
#pragma once

#include "HostTest.h"
#include "fonts/TextDrawing.h"
#include <qrtVistrelClasses4/PixelBuffer.h>

#include <optional>

namespace qrtVistrelClasses4 {

inline constexpr Color kFontColor = Rgb(255, 176, 0);
inline constexpr Color kBackColor = Rgb(0, 0, 64);
inline constexpr Color kUntouched = Rgb(1, 2, 3);

/// Sets a letter of the font, whose dots are "#". Without `ownWidth`, it is as wide as its rows.
inline void AddLetter(Font& font, char character, const Texts& rows, std::optional<int> ownWidth = {}) {
    if (font.characters.find(character) == std::string::npos)
        font.characters += character;
    const auto start = static_cast<std::size_t>(font.glyphOffset(character).value());
    font.store.at(start) = static_cast<std::uint8_t>(ownWidth.value_or(static_cast<int>(rows[0].size())));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t column = 0; column < rows[row].size(); ++column)
            if (rows[row][column] == '#')
                font.store.at(start + 1 + column / 8 * rows.size() + row) |=
                    static_cast<std::uint8_t>(128 >> column % 8);
}

/// A font that has only the letter "A".
inline Font FontOf(std::int16_t width, const Texts& rowsOfA, std::optional<int> ownWidth = {}) {
    Font font{width, static_cast<std::int16_t>(rowsOfA.size()), {}};
    AddLetter(font, 'A', rowsOfA, ownWidth);
    return font;
}

/// "#" for the colour of the font, "." for the background, "-" for a pixel that was not drawn.
inline Texts PictureOf(const Raster& pixels) {
    Texts rows;
    for (std::int32_t y = 0; y < pixels.height(); ++y) {
        rows.emplace_back();
        for (const Color pixel : pixels.row(y))
            rows.back() += pixel == kFontColor   ? '#'
                           : pixel == kBackColor ? '.'
                           : pixel == kUntouched ? '-'
                                                 : '?';
    }
    return rows;
}

/// Pixels that nothing was drawn on.
inline PixelBuffer UntouchedPixels(std::int32_t width, std::int32_t height) {
    PixelBuffer pixels(width, height, kUntouched);
    pixels.setBackColor(kBackColor);
    return pixels;
}

} // namespace qrtVistrelClasses4
