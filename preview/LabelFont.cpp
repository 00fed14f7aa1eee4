#include "preview/LabelFont.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

/// The glyphs of the characters 32 to 127.
constexpr std::uint8_t kGlyphs[] = {
#include "preview/LabelGlyphs.inc"
};

constexpr std::int16_t kLabelWidth = 5;
constexpr std::int16_t kLabelHeight = 8;
constexpr std::size_t kGlyphSize = 1 + kLabelHeight;
constexpr unsigned char kFirstGlyph = 32;
constexpr unsigned char kFirstBeyondAscii = 128;

/// What the characters 128 to 255 look like.
constexpr std::string_view kLookAlikes = "E?,f\".++^%S<O?Z?"
                                         "?''\"\"*--~Ts>o?zY"
                                         " !cLoY|S\"ca<--R-"
                                         "o+23'uP.,1o>///?"
                                         "AAAAAAACEEEEIIII"
                                         "DNOOOOOxOUUUUYPs"
                                         "aaaaaaaceeeeiiii"
                                         "dnooooo/ouuuuypy";

static_assert(std::size(kGlyphs) == (kFirstBeyondAscii - kFirstGlyph) * kGlyphSize);
static_assert(kLookAlikes.size() == 256 - kFirstBeyondAscii);

Font makeFont() {
    Font font{kLabelWidth, kLabelHeight, {}};
    auto end = std::ranges::copy(kGlyphs, font.store.begin()).out;
    for (unsigned code = kFirstGlyph; code < kFirstBeyondAscii; ++code)
        font.characters += static_cast<char>(code);
    for (const char looks : kLookAlikes) {
        font.characters += static_cast<char>(font.characters.size() + kFirstGlyph);
        const auto* const glyph = kGlyphs + (static_cast<unsigned char>(looks) - kFirstGlyph) * kGlyphSize;
        end = std::copy_n(glyph, kGlyphSize, end);
    }
    return font;
}

} // namespace

const Font& LabelFont() {
    static const Font font = makeFont();
    return font;
}

} // namespace qrtVistrelClasses4
