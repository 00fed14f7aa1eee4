#include "preview/LabelFont.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

/// Letters in the order of their codes: a code, and the bytes of its glyph.
constexpr std::uint8_t kLetters[] = {
#include "preview/LabelGlyphs.inc"
};

constexpr std::int16_t kLabelWidth = 5;
constexpr std::int16_t kLabelHeight = 8;
constexpr std::size_t kGlyphSize = 1 + kLabelHeight;
constexpr std::size_t kLetterSize = 1 + kGlyphSize;
constexpr unsigned kCodes = 256;

static_assert(std::size(kLetters) % kLetterSize == 0);

/// Codes without a letter, which Windows-1252 does not assign, have a question mark.
Font makeFont() {
    Font font{kLabelWidth, kLabelHeight, {}};
    auto end = font.store.begin();
    const auto add = [&](unsigned code, const std::uint8_t* glyph) {
        font.characters += static_cast<char>(code);
        end = std::copy_n(glyph, kGlyphSize, end);
    };
    const std::uint8_t* questionMark = nullptr;
    unsigned next = kLetters[0];
    for (const std::uint8_t* letter = std::begin(kLetters); letter != std::end(kLetters);
         letter += kLetterSize) {
        if (*letter == '?')
            questionMark = letter + 1;
        for (; next < *letter; ++next)
            add(next, questionMark);
        add(next++, letter + 1);
    }
    for (; next < kCodes; ++next)
        add(next, questionMark);
    return font;
}

} // namespace

const Font& LabelFont() {
    static const Font font = makeFont();
    return font;
}

} // namespace qrtVistrelClasses4
