// A text of JSON in UTF-8 for the parser, which gets its texts in Windows-1252.
#pragma once

#include "platform/Utf8.h"

#include <rapidjson/reader.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The last text in quotes that was parsed.
struct DecodedText {
    explicit DecodedText(std::size_t mostCharacters)
        : characters(std::make_unique_for_overwrite<char[]>(mostCharacters)) {}

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
    /// a short escape.
    void Put(char byte) {
        if (static_cast<unsigned char>(byte) < 0x80)
            *decodedEnd_++ = byte;
        else if (next_ > characterEnd_)
            putCharacterBefore();
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
    std::size_t PutEnd(char* /*begin*/) {
        return static_cast<std::size_t>(decodedEnd_ - decoded_->characters.get());
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
