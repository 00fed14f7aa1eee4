#include "tools/fonts/FontOpening.h"

#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/program/FileStart.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr CellSize kSizesFromFile{kSizeFromFile, kSizeFromFile};

/// The file, or one byte more than a font can have.
std::string fontBytes(const std::string& path) { return FileStart(path, kLargestFontFile + 1); }

bool hasLength(std::string_view bytes, CellSize size) {
    return HasLengthOfFont(bytes, size.width, size.height);
}

/// Why a file is not a font without a header of the size that `font` was read in.
std::string unsuitableLength(std::size_t length, const Font& font) {
    return (length > kLargestFontFile ? "more than " + std::to_string(kLargestFontFile)
                                      : std::to_string(length)) +
           " bytes are not a whole number of letters of " + SizeText({font.width, font.height}) +
           " dots, which take " + std::to_string(font.recordSize()) + " bytes each";
}

/// A font with a header that `size` was typed for. Adds an error and returns nothing if it has another size.
std::optional<Font> withTypedSize(std::optional<Font> font, CellSize size, ErrorLines& errors) {
    const CellSize found{font->width, font->height};
    if (found == size)
        return font;
    errors.add("the letters are " + SizeText(found) + " dots, as the header says: leave out --size");
    return std::nullopt;
}

} // namespace

std::optional<CellSize> SizeOfNumberedFont(std::string_view path) {
    constexpr std::int16_t ordinarySign = 0;
    constexpr std::int16_t signWithOwnFont = 16;
    const std::string_view name = SplitPath(path).name;
    for (std::int16_t number = 0; number < kNumberedFonts; ++number)
        for (const auto file : {clsFontSizes::FontFile(number, ordinarySign, false),
                                clsFontSizes::FontFile(number, ordinarySign, true),
                                clsFontSizes::FontFile(number, signWithOwnFont, true)})
            if (file && EqualIgnoringAsciiCase(name, *file))
                return clsFontSizes::FontSize(number);
    return std::nullopt;
}

std::string SizeText(CellSize size) {
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

std::optional<Font> OpenFont(const std::string& path, const std::optional<CellSize>& size,
                             ErrorLines& errors) {
    errors.aboutFile(path);
    const std::string bytes = fontBytes(path);
    const std::optional<CellSize> known = size ? size : SizeOfNumberedFont(path);
    if (hasLength(bytes, kSizesFromFile)) { // a font without a header starts with a blank, so with zeros
        std::optional<Font> font = ParseFont(bytes, kSizeFromFile, kSizeFromFile);
        if (size)
            return withTypedSize(std::move(font), *size, errors);
        if (known)
            errors.add("has a header, but fonts of this name are read without one: give it another name");
        return font;
    }
    if (!known) {
        errors.add("not a font, or one without a header: give --size");
        return std::nullopt;
    }
    std::optional<Font> font = ParseFont(bytes, known->width, known->height);
    if (hasLength(bytes, *known))
        return font;
    errors.add(unsuitableLength(bytes.size(), *font));
    return size ? std::nullopt : std::move(font); // a font that is cut short is shown as far as it goes
}

std::optional<std::string> FaultOfFont(const std::string& path, const std::optional<CellSize>& size) {
    const std::string bytes = fontBytes(path);
    const CellSize layout = size.value_or(kSizesFromFile);
    if (hasLength(bytes, layout))
        return std::nullopt;
    const std::optional<Font> font = ParseFont(bytes, layout.width, layout.height);
    return !size || !font ? "it is not a font with a header" : unsuitableLength(bytes.size(), *font);
}

std::optional<Font> PresentFont(const std::string& path, CellSize size) {
    if (platform().files().kindOf(path) != EntryKind::file)
        return std::nullopt;
    const std::string bytes = fontBytes(path);
    for (const CellSize layout : {kSizesFromFile, size})
        if (hasLength(bytes, layout))
            return ParseFont(bytes, layout.width, layout.height);
    return std::nullopt;
}

} // namespace qrtVistrelClasses4
