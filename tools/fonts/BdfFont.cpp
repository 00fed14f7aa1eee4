#include "tools/fonts/BdfFont.h"

#include "fonts/Letter.h"
#include <qrtVistrelClasses4/Utf8.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <charconv>
#include <cmath>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kFirstWord = "STARTFONT";
constexpr std::string_view kUnicode = "ISO10646-1";
constexpr std::size_t kBitsInHexDigit = 4;
constexpr std::size_t kCodes = 256;
constexpr unsigned kFirstPrintable = 32, kLastAscii = 126, kGlyphOfBrokenBar = 127, kFirstHighLatin = 160,
                   kBrokenBar = 166;

int gapOf(int height) { return height > kHighestWithOwnGap ? kGapAfterLetters : 0; }

/// A character of Unicode in UTF-8. Nothing for one that Windows-1252 surely lacks.
std::string utf8Of(std::int32_t code) {
    constexpr std::int32_t firstOfTwo = 0x80, firstOfThree = 0x800, firstBeyond = 0x10000;
    constexpr unsigned six = 6, lowSix = 0x3f;
    const auto byte = [](unsigned value) { return static_cast<char>(value); };
    if (code < 0 || code >= firstBeyond)
        return {};
    const auto bits = static_cast<unsigned>(code);
    if (code < firstOfTwo)
        return {byte(bits)};
    const char last = byte(0x80U | (bits & lowSix));
    if (code < firstOfThree)
        return {byte(0xc0U | bits >> six), last};
    return {byte(0xe0U | bits >> 2 * six), byte(0x80U | (bits >> six & lowSix)), last};
}

/// The character of a letter in UTF-8, as a number.
std::int32_t unicodeOf(unsigned char code) {
    const std::string text = Utf8FromAnsi(std::string(1, static_cast<char>(code)));
    const auto tail = [&](std::size_t i) { return static_cast<unsigned char>(text[i]) & 0x3f; };
    const int first = static_cast<unsigned char>(text[0]);
    return text.size() == 1   ? first
           : text.size() == 2 ? (first & 0x1f) << 6 | tail(1)
                              : (first & 0x0f) << 12 | tail(1) << 6 | tail(2);
}

/// A box of dots. `x` and `y` are its lower left corner, seen from where the letter starts on the base line.
struct Box {
    int width = 0, height = 0, x = 0, y = 0;
};

/// What one letter of the file has said so far.
struct BdfLetter {
    std::size_t line = 0;
    std::optional<std::int32_t> encoding;
    int advance = 0;
    std::optional<Box> box;
    std::vector<std::string> rows; ///< Hexadecimal.
};

class BdfReader {
public:
    explicit BdfReader(ErrorLines& errors) : errors_(errors) {}

    std::optional<FontPictures> read(std::string_view text) {
        while (!text.empty() && !isEnded_) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            ++number_;
            if (!take(trimmed(text.substr(0, end))))
                return std::nullopt;
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        if (!isEnded_) {
            fail("the font ends before \"ENDFONT\"");
            return std::nullopt;
        }
        return finished();
    }

private:
    static std::string_view trimmed(std::string_view line) {
        line = line.substr(0, line.find_last_not_of(" \t\r") + 1);
        return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
    }

    bool fail(const std::string& what) { return failAt(number_, what); }
    bool failAt(std::size_t line, const std::string& what) {
        errors_.add("line " + std::to_string(line) + ": " + what);
        return false;
    }

    bool take(std::string_view line) {
        if (line.empty())
            return true;
        if (isBitmap_ && line != "ENDCHAR")
            return takeRow(line);
        const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
        const std::string_view word = line.substr(0, end), rest = trimmed(line.substr(end));
        if (number_ == 1 && word != kFirstWord)
            return fail("a BDF font begins with \"STARTFONT\"");
        return letter_ ? takeOfLetter(word, rest) : takeOfFont(word, rest);
    }

    bool takeOfFont(std::string_view word, std::string_view rest) {
        if (word == "FONT")
            name_ = rest;
        else if (word == "CHARSET_REGISTRY")
            registry_ = unquoted(rest);
        else if (word == "CHARSET_ENCODING")
            encoding_ = unquoted(rest);
        else if (word == "FONTBOUNDINGBOX")
            return bounds_ ? fail("a second FONTBOUNDINGBOX") : takeBox(rest, bounds_, 1);
        else if (word == "ENDFONT")
            isEnded_ = true;
        else if (word == "STARTCHAR")
            return startLetter();
        return true;
    }

    bool takeOfLetter(std::string_view word, std::string_view rest) {
        std::array<int, 2> numbers{};
        if (word == "ENCODING") {
            if (!takeNumbers(rest, {numbers.data(), 1}, -1, std::numeric_limits<int>::max()))
                return fail("ENCODING must be followed by a number");
            letter_->encoding = numbers[0];
        } else if (word == "DWIDTH") {
            if (!takeNumbers(rest, numbers, -kLargestCellSide, kLargestCellSide))
                return fail("DWIDTH must be followed by two numbers of up to 255");
            letter_->advance = numbers[0];
        } else if (word == "BBX") {
            return takeBox(rest, letter_->box, 0);
        } else if (word == "BITMAP") {
            if (!letter_->box)
                return fail("BITMAP before BBX, which has the size of the letter");
            isBitmap_ = true;
        } else if (word == "ENDCHAR") {
            return endLetter();
        } else if (word == "STARTCHAR" || word == "ENDFONT") {
            return fail("the letter of line " + std::to_string(letter_->line) + " has no ENDCHAR");
        }
        return true;
    }

    bool startLetter() {
        if (!bounds_)
            return fail("a letter before FONTBOUNDINGBOX, which has the size of the font");
        if (characterSet_.empty() && !findCharacterSet())
            return false;
        letter_ = BdfLetter{};
        letter_->line = number_;
        return true;
    }

    /// The numbers with which a text begins. False if there are too few, or one is too small or too large.
    static bool takeNumbers(std::string_view text, std::span<int> numbers, int least, int most) {
        for (int& number : numbers) {
            text = trimmed(text);
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
            if (error != std::errc() || number < least || number > most)
                return false;
            text.remove_prefix(static_cast<std::size_t>(end - text.data()));
            if (!text.empty() && text.front() != ' ' && text.front() != '\t')
                return false;
        }
        return true;
    }

    bool takeBox(std::string_view rest, std::optional<Box>& box, int leastSide) {
        std::array<int, 4> numbers{};
        if (!takeNumbers(rest, numbers, -kLargestCellSide, kLargestCellSide) || numbers[0] < leastSide ||
            numbers[1] < leastSide)
            return fail("a box is four numbers: width and height of " + std::to_string(leastSide) +
                        " to 255 dots, and two offsets");
        box = Box{numbers[0], numbers[1], numbers[2], numbers[3]};
        return true;
    }

    static std::string unquoted(std::string_view text) {
        if (text.size() > 1 && text.front() == '"' && text.back() == '"')
            text = text.substr(1, text.size() - 2);
        std::string upper(text);
        std::ranges::transform(upper, upper.begin(), [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        });
        return upper;
    }

    /// From the properties, or else from the end of the font's name. A font that says neither has Unicode.
    bool findCharacterSet() {
        characterSet_ = registry_ + "-" + encoding_;
        if (registry_.empty()) {
            const std::size_t last = name_.rfind('-');
            const std::size_t start =
                last == name_.npos || last == 0 ? name_.npos : name_.rfind('-', last - 1);
            characterSet_ = start == name_.npos ? kUnicode : unquoted(name_.substr(start + 1));
        }
        const auto known = {kUnicode, std::string_view("ISO8859-1"), std::string_view("MICROSOFT-CP1252")};
        return std::ranges::find(known, characterSet_) != known.end() ||
               fail("the characters are those of " + characterSet_ +
                    "; known are ISO10646-1, ISO8859-1 and MICROSOFT-CP1252");
    }

    bool takeRow(std::string_view line) {
        const Box& box = *letter_->box;
        if (letter_->rows.size() == static_cast<std::size_t>(box.height))
            return fail("the letter has more rows than the " + std::to_string(box.height) + " of its BBX");
        const std::size_t bytes = (static_cast<std::size_t>(box.width) + kDotsInByte - 1) / kDotsInByte;
        const std::size_t digits = 2 * bytes;
        if (line.size() < digits || line.find_first_not_of("0123456789abcdefABCDEF") != line.npos)
            return fail("a row of this letter has " + std::to_string(digits) + " hexadecimal digits");
        letter_->rows.emplace_back(line);
        return true;
    }

    bool endLetter() {
        isBitmap_ = false;
        if (!letter_->encoding || !letter_->box)
            return fail("the letter has no ENCODING or no BBX");
        if (letter_->rows.size() != static_cast<std::size_t>(letter_->box->height))
            return fail("the letter has " + std::to_string(letter_->rows.size()) + " rows, and its BBX " +
                        std::to_string(letter_->box->height));
        const bool isAdded = addLetter(*letter_);
        letter_.reset();
        return isAdded;
    }

    /// The code of a letter. Nothing if Windows-1252 lacks its character.
    std::optional<unsigned char> codeOf(std::int32_t encoding) const {
        if (characterSet_ == kUnicode) {
            const std::string text = utf8Of(encoding);
            const auto ansi = text.empty() ? std::nullopt : AnsiFromUtf8(text);
            return ansi ? std::optional(static_cast<unsigned char>(ansi->front())) : std::nullopt;
        }
        // Latin-1 fonts have lines for drawing boxes below 32.
        const auto code = static_cast<std::uint32_t>(encoding);
        const bool isLatin = (code >= kFirstPrintable && code <= kLastAscii) || code >= kFirstHighLatin;
        const bool isHeld = characterSet_ == "ISO8859-1" ? isLatin : true;
        return code < kCodes && isHeld ? std::optional(static_cast<unsigned char>(code)) : std::nullopt;
    }

    bool addLetter(const BdfLetter& letter) {
        const Box& box = *letter.box;
        const int top = bounds_->height + bounds_->y - (box.y + box.height);
        if (box.height > 0 && (top < 0 || top + box.height > bounds_->height))
            return failAt(letter.line, "the letter is higher or lower than FONTBOUNDINGBOX");
        const auto code = codeOf(*letter.encoding);
        if (!code)
            return true;
        if (seen_[*code])
            return failAt(letter.line, "a second letter " + std::to_string(*letter.encoding));
        seen_.set(*code);
        const int left = std::max(box.x, 0);
        const auto ink = static_cast<int>(lastInk(letter.rows, box));
        const int width = std::max(letter.advance - gapOf(bounds_->height), ink > 0 ? left + ink : 0);
        if (width < 1)
            return true;
        Picture rows(static_cast<std::size_t>(bounds_->height),
                     std::string(static_cast<std::size_t>(width), kDarkDot));
        for (std::size_t row = 0; row < letter.rows.size(); ++row)
            for (int column = 0; column < box.width && left + column < width; ++column)
                if (isLitIn(letter.rows[row], static_cast<std::size_t>(column)))
                    rows[static_cast<std::size_t>(top) + row]
                        [static_cast<std::size_t>(left) + static_cast<std::size_t>(column)] = kLitDot;
        letters_.push_back({*code, letter.line, std::move(rows)});
        return true;
    }

    static bool isLitIn(std::string_view digits, std::size_t column) {
        unsigned digit = 0;
        const char* const place = digits.data() + column / kBitsInHexDigit;
        std::from_chars(place, place + 1, digit, 16);
        return (digit & 8U >> column % kBitsInHexDigit) != 0;
    }

    /// The column after the last lit one.
    static std::size_t lastInk(const std::vector<std::string>& rows, const Box& box) {
        std::size_t last = 0;
        for (const std::string& row : rows)
            for (auto column = static_cast<std::size_t>(box.width); column > last; --column)
                if (isLitIn(row, column - 1))
                    last = column;
        return last;
    }

    FontPictures finished() {
        const int width = std::min(bounds_ ? bounds_->width : 0, kWidestDrawnCell); // letters may be narrower
        FontPictures font{
            {static_cast<std::int16_t>(width), static_cast<std::int16_t>(bounds_ ? bounds_->height : 0)},
            std::move(letters_)};
        // A broken bar is always drawn with the glyph of 127.
        if (const auto bar = std::ranges::find(font.letters, kBrokenBar, &LetterPicture::code);
            bar != font.letters.end()) {
            bar->code = kGlyphOfBrokenBar;
            if (seen_[kGlyphOfBrokenBar])
                font.letters.erase(bar);
        }
        std::size_t widest = 0;
        for (const LetterPicture& letter : font.letters)
            widest = std::max(widest, letter.rows.front().size());
        while (font.cell.width < kWidestDrawnCell &&
               static_cast<std::size_t>(DrawnColumns(font.cell)) < std::max<std::size_t>(widest, 1))
            ++font.cell.width;
        return font;
    }

    ErrorLines& errors_;
    std::size_t number_ = 0;
    std::string name_, registry_, encoding_, characterSet_;
    std::optional<Box> bounds_;
    std::optional<BdfLetter> letter_; ///< The letter that is being read.
    bool isBitmap_ = false, isEnded_ = false;
    std::vector<LetterPicture> letters_;
    std::bitset<kCodes> seen_;
};

std::string hexRow(const std::string& row) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string hex;
    for (std::size_t start = 0; start < row.size() || hex.size() % 2 != 0; start += kBitsInHexDigit) {
        std::size_t digit = 0;
        for (std::size_t column = start; column < start + kBitsInHexDigit; ++column)
            digit = digit * 2 + (column < row.size() && row[column] == kLitDot ? 1 : 0);
        hex += digits[digit];
    }
    return hex;
}

std::string letterText(const LetterPicture& letter, int height, int descent) {
    const std::string width = std::to_string(letter.rows.front().size());
    const std::size_t advance = letter.rows.front().size() + static_cast<std::size_t>(gapOf(height));
    constexpr std::size_t unitsInHeight = 1000;
    std::string text = "STARTCHAR " + std::to_string(letter.code);
    text += "\nENCODING " + std::to_string(unicodeOf(letter.code));
    text += "\nSWIDTH " + std::to_string(advance * unitsInHeight / static_cast<std::size_t>(height)) + " 0";
    text += "\nDWIDTH " + std::to_string(advance) + " 0";
    text += "\nBBX " + width + " " + std::to_string(height) + " 0 " + std::to_string(-descent) + "\nBITMAP\n";
    for (const std::string& row : letter.rows)
        text += hexRow(row) + '\n';
    return text + "ENDCHAR\n";
}

} // namespace

bool IsBdf(std::string_view text) { return text.starts_with(kFirstWord); }

std::optional<FontPictures> ReadBdf(std::string_view text, ErrorLines& errors) {
    return BdfReader(errors).read(text);
}

std::string BdfText(const FontPictures& font, std::string_view name) {
    const int height = font.cell.height;
    const int descent = (height + kHighestWithOwnGap / 2) / kHighestWithOwnGap; // the last of eight rows
    std::string family;
    for (const char c : name) // a hyphen would end the part of the name
        family += (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ? c : '_';
    const std::string size = std::to_string(height);
    std::string text = "STARTFONT 2.1\nFONT -vistrel-" + family + "-medium-r-normal--" + size + "-" + size +
                       "0-72-72-p-" + std::to_string(font.cell.width) + "0-" + std::string(kUnicode);
    text += "\nSIZE " + size + " 72 72\nFONTBOUNDINGBOX " + std::to_string(font.cell.width) + " " + size +
            " 0 " + std::to_string(-descent);
    text += "\nSTARTPROPERTIES 4\nFONT_ASCENT " + std::to_string(height - descent) + "\nFONT_DESCENT " +
            std::to_string(descent) + "\nCHARSET_REGISTRY \"ISO10646\"\nCHARSET_ENCODING \"1\"";
    text += "\nENDPROPERTIES\nCHARS " + std::to_string(font.letters.size()) + '\n';
    for (const LetterPicture& letter : font.letters)
        text += letterText(letter, height, descent);
    return text + "ENDFONT\n";
}

} // namespace qrtVistrelClasses4
