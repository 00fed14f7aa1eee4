// A text of JSON in UTF-8 for the parser, which gets its texts in Windows-1252.
#pragma once

#include "platform/Utf8.h"

#include <rapidjson/reader.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The last text in quotes that was parsed.
struct DecodedText {
    static constexpr std::size_t kSpare = 8; ///< As many characters may be written after the last one.

    explicit DecodedText(std::size_t mostCharacters)
        : characters(std::make_unique_for_overwrite<char[]>(mostCharacters + kSpare)) {}

    /// In Windows-1252, with "?" for each character that it lacks.
    std::string_view text(std::size_t size) const { return {characters.get(), size}; }

    std::unique_ptr<char[]> characters;
    std::optional<char32_t> lacking; ///< The last character that Windows-1252 lacks.
    bool isUtf8 = true;
};

/// The parser takes this to be a text that is decoded in place, because that is fast. But texts are decoded
/// elsewhere, so that the line of an error can be counted.
class ParsedText {
public:
    using Ch = char;

    /// `text` and `decoded` must outlive this object. `decoded` has room for as many characters.
    ParsedText(const std::string& text, DecodedText& decoded)
        : start_(text.data()), next_(start_), end_(start_ + text.size()), decoded_(&decoded) {}

    char Peek() const { return *next_; }
    char Take() { return *next_++; }
    /// Skips blanks and line ends. Indented texts have many.
    void skipBlanks() {
        constexpr std::string_view blanks = "        ";
        const char* next = next_;
        while (*next == ' ' || *next == '\n' || *next == '\r' || *next == '\t') {
            ++next;
            while (static_cast<std::size_t>(end_ - next) >= blanks.size() &&
                   std::memcmp(next, blanks.data(), blanks.size()) == 0)
                next += blanks.size();
        }
        next_ = next;
    }
    std::size_t Tell() const { return static_cast<std::size_t>(next_ - start_); }
    /// Takes a byte of a text in quotes, which the parser has just taken from this text, or the character of
    /// a short escape, and then the plain characters that follow in this text. The NUL that the parser puts
    /// at the end of a text is not one of its bytes.
    void Put(char byte) {
        if (byte == '\0')
            return;
        if (static_cast<unsigned char>(byte) < 0x80)
            *decodedEnd_++ = byte;
        else if (next_ > characterEnd_)
            putCharacterBefore();
        putPlainCharacters();
    }
    void putCharacter(char32_t character) {
        const std::optional<char> code = AnsiFromCharacter(character);
        if (!code)
            decoded_->lacking = character;
        *decodedEnd_++ = code.value_or('?');
    }
    /// The result matters only for a number: it is where that begins. The parser writes nothing there.
    char* PutBegin() {
        decodedEnd_ = decoded_->characters.get();
        decoded_->lacking.reset();
        decoded_->isUtf8 = true;
        return const_cast<char*>(next_);
    }
    /// The size with the NUL.
    std::size_t PutEnd(char* /*begin*/) {
        return static_cast<std::size_t>(decodedEnd_ - decoded_->characters.get()) + 1;
    }

private:
    /// Takes the whole character whose first byte comes before the next one.
    void putCharacterBefore() {
        std::string_view rest(next_ - 1, static_cast<std::size_t>(end_ - next_) + 1);
        if (const auto character = TakeUtf8Character(rest))
            putCharacter(*character);
        else
            decoded_->isUtf8 = false;
        characterEnd_ = rest.data();
    }

    /// Takes what is in ASCII and neither a quote nor an escape, eight characters at a time.
    void putPlainCharacters() {
        while (static_cast<std::size_t>(end_ - next_) >= DecodedText::kSpare) {
            std::uint64_t characters = 0;
            std::memcpy(&characters, next_, sizeof characters);
            std::memcpy(decodedEnd_, next_, sizeof characters);
            const std::size_t count = plainCharactersIn(characters);
            next_ += count;
            decodedEnd_ += count;
            if (count < sizeof characters)
                return;
        }
    }
    /// Their number before the first other one. The highest bit of each byte is worked out at once: a
    /// difference sets it in the first byte that is too small, and perhaps in later ones.
    static std::size_t plainCharactersIn(std::uint64_t characters) {
        if constexpr (std::endian::native != std::endian::little)
            return 0;
        constexpr std::uint64_t ones = 0x0101010101010101, highest = ones * 0x80;
        const auto haveLess = [&](std::uint64_t bytes, unsigned char limit) {
            return (bytes - ones * limit) & ~bytes;
        };
        const std::uint64_t others =
            (characters | haveLess(characters, ' ') | haveLess(characters ^ (ones * '"'), 1) |
             haveLess(characters ^ (ones * '\\'), 1)) &
            highest;
        return static_cast<std::size_t>(std::countr_zero(others)) / 8;
    }

    const char* start_;
    const char* next_;
    const char* end_;
    const char* characterEnd_ = start_; ///< Bytes before it have been taken.
    DecodedText* decoded_;
    char* decodedEnd_ = nullptr;
};

/// The encoding of such a text. Characters that are escaped by their numbers need no UTF-8.
struct ParsedEncoding : rapidjson::UTF8<> {
    static void Encode(ParsedText& text, unsigned character) { text.putCharacter(character); }
};

} // namespace qrtVistrelClasses4

template <> // a copy is as good as the text itself, and faster
struct rapidjson::StreamTraits<qrtVistrelClasses4::ParsedText> {
    enum { copyOptimization = 1 };
};

template <>
inline void rapidjson::SkipWhitespace(qrtVistrelClasses4::ParsedText& is) {
    is.skipBlanks();
}
