#include "tools/fonts/FontPictures.h"

#include "fonts/Letter.h"

#include <algorithm>
#include <bitset>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kLargestCode = 255;
constexpr int kMostLetters = 255;
constexpr char kComment = ';';
constexpr std::string_view kSizeKeyword = "size ";

class Reader {
public:
    explicit Reader(ErrorLines& errors) : errors_(errors) {}

    std::optional<FontPictures> read(std::string_view text) {
        std::size_t number = 0;
        while (!text.empty()) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            if (!take(trimmed(text.substr(0, end)), ++number))
                return std::nullopt;
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        if (font_.cell == CellSize{}) {
            errors_.add("has no line with the size");
            return std::nullopt;
        }
        return isLetterComplete() ? std::optional(std::move(font_)) : std::nullopt;
    }

private:
    static std::string_view trimmed(std::string_view line) {
        return line.substr(0, line.find_last_not_of(" \t\r") + 1);
    }

    bool fail(std::size_t line, const std::string& what) {
        errors_.add("line " + std::to_string(line) + ": " + what);
        return false;
    }

    bool take(std::string_view line, std::size_t number) {
        if (line.empty() || line.front() == kComment)
            return true;
        if (font_.cell == CellSize{})
            return takeSize(line, number);
        return line.front() == kLitDot || line.front() == kDarkDot ? takeRow(line, number)
                                                                   : takeLetter(line, number);
    }

    bool takeSize(std::string_view line, std::size_t number) {
        std::optional<DotSize> size;
        if (line.starts_with(kSizeKeyword))
            size = SizeFromText(line.substr(kSizeKeyword.size()), kLargestCellSide);
        if (!size)
            return fail(number, R"(must be "size" with width and height, such as "size 6x8")");
        font_.cell = CellSizeOf(*size);
        return true;
    }

    bool takeLetter(std::string_view line, std::size_t number) {
        if (!isLetterComplete())
            return false;
        const auto code = NumberFromText(line.substr(0, line.find(' ')), 0, kLargestCode);
        if (!code)
            return fail(number, R"(neither a row of dots ("#" and ".") nor the code of a letter (0 to 255))");
        const auto index = static_cast<std::size_t>(*code);
        if (seen_[index])
            return fail(number, "a second letter " + std::to_string(*code));
        seen_.set(index);
        font_.letters.push_back({static_cast<unsigned char>(*code), number, {}});
        return true;
    }

    bool takeRow(std::string_view line, std::size_t number) {
        if (font_.letters.empty())
            return fail(number, "a row of dots before the code of its letter");
        Picture& rows = font_.letters.back().rows;
        if (line.find_first_not_of("#.") != line.npos)
            return fail(number, R"(a row holds nothing but "#" and ".")");
        if (!rows.empty() && line.size() != rows.front().size())
            return fail(number, "the row is " + std::to_string(line.size()) + " dots wide, the first " +
                                    std::to_string(rows.front().size()));
        rows.emplace_back(line);
        return true;
    }

    bool isLetterComplete() {
        if (font_.letters.empty())
            return true;
        const LetterPicture& letter = font_.letters.back();
        const auto height = static_cast<std::size_t>(font_.cell.height);
        return letter.rows.size() == height ||
               fail(letter.line, "letter " + std::to_string(letter.code) + " has " +
                                     std::to_string(letter.rows.size()) + " rows, not " +
                                     std::to_string(height));
    }

    ErrorLines& errors_;
    FontPictures font_;
    std::bitset<kLargestCode + 1> seen_;
};

/// The byte of a dot among those of a letter, and its bit in that byte.
struct DotPlace {
    std::size_t index;
    unsigned bit;
};
DotPlace placeOf(std::size_t column, std::size_t row, std::size_t height) {
    constexpr unsigned leftmost = 0x80;
    return {column / kDotsInByte * height + row, leftmost >> column % kDotsInByte};
}

/// The same in the store of a font, for the letter whose glyph starts at `offset`.
DotPlace placeOf(std::size_t offset, const Font& font, std::size_t column, std::size_t row) {
    DotPlace place = placeOf(column, row, static_cast<std::size_t>(font.height));
    place.index += offset + 1;
    return place;
}

/// The picture of the letter at an offset in the store. Dots beyond its record or the store are dark.
Picture pictureAt(const Font& font, std::size_t offset) {
    const std::size_t width = font.store[offset];
    const std::size_t end = std::min(font.store.size(), offset + static_cast<std::size_t>(font.recordSize()));
    Picture rows(static_cast<std::size_t>(font.height), std::string(width, kDarkDot));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t column = 0; column < width; ++column) {
            const DotPlace place = placeOf(offset, font, column, row);
            if (place.index < end && (font.store[place.index] & place.bit) != 0)
                rows[row][column] = kLitDot;
        }
    return rows;
}

void store(Font& font, std::size_t offset, const Picture& rows) {
    font.store[offset] = static_cast<std::uint8_t>(rows.front().size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            const DotPlace place = placeOf(offset, font, column, row);
            if (rows[row][column] == kLitDot)
                font.store[place.index] |= static_cast<std::uint8_t>(place.bit);
        }
}

/// Columns that are drawn of a letter of this font. 0 if its rows have too few bytes for them.
int columnsOf(const Font& font) {
    const int wanted =
        std::min((font.width + kDotsInByte - 1) / kDotsInByte * kDotsInByte, kMostDrawnColumns);
    return font.bytesPerRow() * kDotsInByte >= wanted && font.width <= kWidestDrawnCell ? wanted : 0;
}

/// Why the font cannot hold the letter. Empty if it can.
std::string refusal(const Font& font, FontLayout layout, const LetterPicture& letter) {
    const std::string name = "letter " + std::to_string(letter.code);
    const int columns = columnsOf(font);
    if (static_cast<int>(letter.rows.front().size()) > columns)
        return name + " is wider than the " + std::to_string(columns) + " dots that fonts " +
               std::to_string(font.width) + " wide hold";
    const std::size_t found = font.characters.find(static_cast<char>(letter.code));
    if (found == font.characters.npos)
        return name + " is not one of 32 to 127, which a font without a header holds";
    const auto offset = static_cast<std::size_t>(font.recordSize()) * found;
    if (layout == FontLayout::header &&
        font.glyphOffset(static_cast<char>(letter.code)) != static_cast<std::int32_t>(offset))
        return name + " would never be drawn: letter 127 is, in its place";
    if (offset + static_cast<std::size_t>(font.recordSize()) > font.store.size())
        return name + " does not fit: all letters together take more than " +
               std::to_string(font.store.size()) + " bytes";
    return {};
}

} // namespace

std::optional<FontPictures> ReadFontPictures(std::string_view text, ErrorLines& errors) {
    return Reader(errors).read(text);
}

std::string FontPicturesText(const FontPictures& font) {
    constexpr unsigned char firstNamed = 33;
    constexpr unsigned char lastNamed = 126; // others would need an encoding
    std::string text = std::string(kSizeKeyword) + std::to_string(font.cell.width) + 'x' +
                       std::to_string(font.cell.height) + '\n';
    for (const LetterPicture& letter : font.letters) {
        text += '\n' + std::to_string(letter.code);
        if (letter.code >= firstNamed && letter.code <= lastNamed)
            (text += ' ') += static_cast<char>(letter.code);
        text += '\n';
        for (const std::string& row : letter.rows)
            text += row + '\n';
    }
    return text;
}

FontPictures PicturesOf(const Font& font) {
    FontPictures pictures{{font.width, font.height}, {}};
    for (std::size_t i = 0; font.height > 0 && i < font.characters.size(); ++i) {
        const char character = font.characters[i];
        const auto offset = static_cast<std::size_t>(font.recordSize()) * i;
        const bool isFound = font.glyphOffset(character) == static_cast<std::int32_t>(offset);
        if (isFound && offset < font.store.size() && font.store[offset] > 0)
            pictures.letters.push_back({static_cast<unsigned char>(character), 0, pictureAt(font, offset)});
    }
    return pictures;
}

FontPictures TakeExtendedLetters(FontPictures& pictures) {
    const std::string held = ParseFont({}, pictures.cell.width, pictures.cell.height)->characters;
    FontPictures others{pictures.cell, {}};
    const auto first = std::stable_partition(
        pictures.letters.begin(), pictures.letters.end(),
        [&](const LetterPicture& letter) { return held.find(static_cast<char>(letter.code)) != held.npos; });
    others.letters.assign(first, pictures.letters.end());
    pictures.letters.erase(first, pictures.letters.end());
    return others;
}

std::optional<std::vector<ExtendedLetter>> ExtendedLettersOf(const FontPictures& pictures,
                                                             ErrorLines& errors) {
    std::vector<ExtendedLetter> letters;
    letters.reserve(pictures.letters.size());
    for (const LetterPicture& picture : pictures.letters) {
        const std::size_t width = picture.rows.front().size(), height = picture.rows.size();
        if (width > kMostDrawnColumns) {
            errors.add("line " + std::to_string(picture.line) + ": letter " + std::to_string(picture.code) +
                       " is wider than the " + std::to_string(kMostDrawnColumns) + " dots that are drawn");
            return std::nullopt;
        }
        ExtendedLetter letter{
            picture.code, static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height), {}};
        letter.dots.resize((width + kDotsInByte - 1) / kDotsInByte * height);
        for (std::size_t row = 0; row < height; ++row)
            for (std::size_t column = 0; column < width; ++column)
                if (picture.rows[row][column] == kLitDot) {
                    const DotPlace place = placeOf(column, row, height);
                    letter.dots[place.index] =
                        static_cast<char>(static_cast<unsigned char>(letter.dots[place.index]) | place.bit);
                }
        letters.push_back(std::move(letter));
    }
    return letters;
}

int DrawnColumns(CellSize cell) { return columnsOf(Font{cell.width, cell.height, {}}); }

std::optional<Font> FontOf(const FontPictures& pictures, FontLayout layout, ErrorLines& errors) {
    if (pictures.letters.empty() || pictures.letters.size() > kMostLetters) {
        errors.add("a font has 1 to 255 letters, not " + std::to_string(pictures.letters.size()));
        return std::nullopt;
    }
    Font font = *ParseFont({}, pictures.cell.width, pictures.cell.height);
    if (layout == FontLayout::header) {
        font.characters.clear();
        for (const LetterPicture& letter : pictures.letters)
            font.characters += static_cast<char>(letter.code);
    }
    if (columnsOf(font) == 0) {
        errors.add("letters of fonts " + std::to_string(font.width) +
                   " wide cannot be drawn; widths are 4 to 8, 12 to 16 and 20 to 100");
        return std::nullopt;
    }
    for (const LetterPicture& letter : pictures.letters) {
        if (const std::string why = refusal(font, layout, letter); !why.empty()) {
            errors.add("line " + std::to_string(letter.line) + ": " + why);
            return std::nullopt;
        }
        const auto offset = font.glyphOffset(static_cast<char>(letter.code)).value();
        store(font, static_cast<std::size_t>(offset), letter.rows);
    }
    return font;
}

} // namespace qrtVistrelClasses4
