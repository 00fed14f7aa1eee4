// Any text as a BDF font, and any bytes as an extended font: which of them, a size or the length of an index,
// the rest.
#include "Fuzz.h"
#include "fonts/ExtendedFont.h"
#include "tools/fonts/BdfFont.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

void readBdf(const std::string& text) {
    ErrorLines errors;
    const auto font = ReadBdf(text, errors);
    Require(font.has_value() == errors.empty(), "a text that is no font has an error");
    if (!font || font->letters.empty())
        return;
    for (const LetterPicture& letter : font->letters)
        Require(letter.rows.size() == static_cast<std::size_t>(font->cell.height) &&
                    std::ranges::all_of(letter.rows,
                                        [&](const std::string& row) {
                                            return !row.empty() && row.size() == letter.rows[0].size();
                                        }),
                "letters are as high as the font, and their rows as wide as they are");
    Require(std::ranges::count(font->letters, 166, &LetterPicture::code) == 0, "a broken bar is letter 127");
    const auto again = ReadBdf(BdfText(*font, "again"), errors);
    const bool isHeld = std::ranges::all_of(
        font->letters, [](const LetterPicture& letter) { return letter.rows[0].size() <= 252; });
    Require(!isHeld || (again && again->cell == font->cell &&
                        std::ranges::equal(font->letters, again->letters, {}, &LetterPicture::rows,
                                           &LetterPicture::rows) &&
                        std::ranges::equal(font->letters, again->letters, {}, &LetterPicture::code,
                                           &LetterPicture::code)),
            "a font that is written is read as it was");
}

void readExtended(std::string_view index, std::string_view dots, std::int16_t height) {
    const auto letters = ParseExtendedFont(index, dots);
    if (!letters)
        return;
    const ExtendedFontFiles files = ExtendedFontBytes(*letters);
    const auto again = ParseExtendedFont(files.index, files.dots);
    Require(again && std::ranges::equal(*letters, *again, {}, &ExtendedLetter::dots, &ExtendedLetter::dots),
            "letters that are written are read as they were");
    ExtendedLetters drawn(height);
    for (const ExtendedLetter& letter : *letters) {
        drawn.add(letter);
        const auto found = drawn.find(letter.code);
        Require(found && found->front() == letter.width, "a letter that is added is found");
    }
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    if (input.byte() % 2 == 0)
        return readBdf(input.rest());
    const auto height = static_cast<std::int16_t>(static_cast<std::int8_t>(input.byte()));
    const std::string index = input.bytes(input.byte());
    readExtended(index, input.rest(), height);
}

} // namespace qrtVistrelClasses4
