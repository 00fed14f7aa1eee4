#include "fonts/FontFile.h"

#include "fonts/ExtendedFont.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr unsigned char kFirstCharacter = 32;
constexpr unsigned char kLastCharacter = 127;

/// Keyboards and playfiles use this code; fonts keep the glyph under `kLastCharacter`.
constexpr unsigned char kBrokenBar = 166;

constexpr std::size_t kHeaderSize = 4; ///< An unused byte, the number of characters, width and height.
constexpr int kLargestByte = 255;

std::string sizedFontCharacters() {
    std::string characters;
    for (unsigned code = kFirstCharacter; code <= kLastCharacter; ++code)
        characters += static_cast<char>(code);
    return characters;
}

std::int16_t byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

void fillStore(Font& font, std::string_view bytes) {
    std::ranges::copy(bytes.substr(0, kGlyphStoreSize), font.store.begin());
}

std::optional<Font> parseHeaderFont(std::string_view bytes) {
    if (bytes.size() < kHeaderSize)
        return std::nullopt;
    const auto count = static_cast<std::size_t>(byteAt(bytes, 1));
    const std::int16_t width = byteAt(bytes, 2);
    const std::int16_t height = byteAt(bytes, 3);
    bytes.remove_prefix(kHeaderSize);
    if (bytes.size() < count)
        return std::nullopt;
    Font font{width, height, std::string(bytes.substr(0, count))};
    fillStore(font, bytes.substr(count));
    return font;
}

/// Bytes of the store that the font's letters take.
std::size_t usedBytes(const Font& font) {
    return std::min(static_cast<std::size_t>(std::max(font.recordSize(), 0)) * font.characters.size(),
                    kGlyphStoreSize);
}

char asByte(std::int64_t number) {
    if (number < 0 || number > kLargestByte)
        Raise(ErrorNumber::overflow);
    return static_cast<char>(number);
}

} // namespace

unsigned char GlyphCode(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code == kBrokenBar ? kLastCharacter : code;
}

std::optional<std::int32_t> Font::glyphOffset(char character) const {
    const unsigned char code = GlyphCode(character);
    std::int64_t glyph = code - kFirstCharacter;
    if (!characters.empty()) {
        const std::size_t found = characters.find(static_cast<char>(code));
        if (found == characters.npos)
            return std::nullopt;
        glyph = static_cast<std::int64_t>(found);
    }
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(glyph * recordSize(), Limits::min(), Limits::max()));
}

bool Font::has(char character) const {
    const auto offset = glyphOffset(character);
    return (offset && *offset >= 0 && *offset < std::ssize(store) &&
            store[static_cast<std::size_t>(*offset)] > 0) ||
           (extended && extended->find(GlyphCode(character)));
}

std::optional<Font> ParseFont(std::string_view bytes, std::int16_t width, std::int16_t height) {
    if (width == kSizeFromFile && height == kSizeFromFile)
        return parseHeaderFont(bytes);
    Font font{width, height, sizedFontCharacters()};
    fillStore(font, bytes);
    return font;
}

bool HasLengthOfFont(std::string_view bytes, std::int16_t width, std::int16_t height) {
    const std::optional<Font> font = ParseFont(bytes, width, height);
    if (!font || font->width < 1 || font->height < 1)
        return false;
    const bool hasHeader = width == kSizeFromFile && height == kSizeFromFile;
    const std::size_t size = bytes.size() - (hasHeader ? kHeaderSize + font->characters.size() : 0);
    if (size == 0 || size >= kGlyphStoreSize)
        return size == kGlyphStoreSize;
    return hasHeader ? size == usedBytes(*font) : size % static_cast<std::size_t>(font->recordSize()) == 0;
}

std::string SizedFontBytes(const Font& font) {
    return {font.store.begin(), font.store.begin() + static_cast<std::ptrdiff_t>(usedBytes(font))};
}

std::string HeaderFontBytes(const Font& font) {
    return std::string{'\0', asByte(std::ssize(font.characters)), asByte(font.width), asByte(font.height)} +
           font.characters + SizedFontBytes(font);
}

} // namespace qrtVistrelClasses4
