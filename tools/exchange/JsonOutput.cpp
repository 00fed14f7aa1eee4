#include "tools/exchange/JsonOutput.h"

#include "platform/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kIndent = 2;
/// A comma, a line end, and the blanks before a value of any depth that occurs.
constexpr std::string_view kLineStart = ",\n                                ";
constexpr char32_t kReplacementCharacter = 0xfffd;

void appendEscaped(std::string& text, char32_t character) {
    constexpr std::string_view plain = "\b\f\n\r\t\"\\", letters = "bfnrt\"\\";
    constexpr char32_t firstControl = 0x7f; // of those above the letters
    if (const std::size_t at =
            character < firstControl ? plain.find(static_cast<char>(character)) : plain.npos;
        at != plain.npos) {
        (text += '\\') += letters[at];
    } else if (character >= ' ' && character < firstControl) {
        text += static_cast<char>(character);
    } else if (character > 0xffff) {
        constexpr char32_t highSurrogate = 0xd800, lowSurrogate = 0xdc00, beyond = 0x10000;
        appendEscaped(text, highSurrogate + ((character - beyond) >> 10));
        appendEscaped(text, lowSurrogate + ((character - beyond) & 0x3ff));
    } else {
        constexpr std::string_view digits = "0123456789abcdef";
        text += "\\u";
        for (const unsigned shift : {12U, 8U, 4U, 0U})
            text += digits[(character >> shift) & 0xf];
    }
}

/// What each character of Windows-1252 is in a text of JSON.
struct Spellings {
    Spellings() {
        for (std::size_t code = 0; code < all.size(); ++code) {
            const std::string utf8 = Utf8FromAnsi(std::string(1, static_cast<char>(code)));
            std::string_view rest = utf8;
            appendEscaped(all[code], TakeUtf8Character(rest).value_or(kReplacementCharacter));
            isPlain[code] = all[code].size() == 1;
        }
    }
    std::array<std::string, 256> all;
    std::array<bool, 256> isPlain{};
};

const Spellings& spellings() {
    static const Spellings all;
    return all;
}

} // namespace

void JsonOutput::startLine() {
    text_.append(kLineStart.substr(isFirst_ ? 1 : 0, (isFirst_ ? 1 : 2) + depth_ * kIndent));
    isFirst_ = false;
}

void JsonOutput::startValue() {
    if (!hasKey_ && depth_ > 0)
        startLine();
    hasKey_ = false;
}

void JsonOutput::begin(std::string_view bracket) {
    startValue();
    text_.append(bracket);
    ++depth_;
    isFirst_ = true;
}

void JsonOutput::end(std::string_view bracket) {
    --depth_;
    if (!isFirst_) {
        isFirst_ = true; // no comma before the bracket
        startLine();
    }
    isFirst_ = false;
    text_.append(bracket);
}

void JsonOutput::putKey(std::string_view key) {
    startLine();
    text_.appendLiteral("\"");
    text_.append(key);
    text_.appendLiteral("\": ");
    hasKey_ = true;
}

void JsonOutput::putAnsi(std::string_view ansi) {
    const Spellings& spelt = spellings();
    const auto isPlain = [&](char code) { return spelt.isPlain[static_cast<unsigned char>(code)]; };
    text_.appendLiteral("\"");
    while (!ansi.empty()) {
        const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(ansi, isPlain) - ansi.begin());
        text_.append(ansi.substr(0, plain));
        ansi.remove_prefix(plain);
        if (!ansi.empty())
            text_.append(spelt.all[static_cast<unsigned char>(ansi.front())]);
        ansi.remove_prefix(ansi.empty() ? 0 : 1);
    }
    text_.appendLiteral("\"");
}

void JsonOutput::putPath(std::string_view path) {
    startValue();
    std::string escaped;
    while (!path.empty()) {
        const auto character = TakeUtf8Character(path);
        appendEscaped(escaped, character.value_or(kReplacementCharacter));
        path.remove_prefix(character ? 0 : 1);
    }
    text_.appendLiteral("\"");
    text_.append(escaped);
    text_.appendLiteral("\"");
}

void JsonOutput::putReal(double number) {
    std::array<char, kNumberTextSize> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
    text_.append(text);
    if (text.find_first_of(".e") == text.npos) // it must not look like a whole number
        text_.appendLiteral(".0");
}

void JsonOutput::putScalar(const JsonKind& kind, const void* value) {
    switch (kind.form) {
    case JsonForm::text:
        return putAnsi(*static_cast<const std::string*>(value));
    case JsonForm::int16:
        return text_.append(std::int32_t{*static_cast<const std::int16_t*>(value)});
    case JsonForm::int32:
        return text_.append(*static_cast<const std::int32_t*>(value));
    case JsonForm::real:
        return putReal(*static_cast<const double*>(value));
    case JsonForm::flag:
        return text_.append(*static_cast<const bool*>(value) ? "true" : "false");
    case JsonForm::flagInNumber: {
        const std::int32_t number = *static_cast<const std::int16_t*>(value);
        return number == 0 || number == 1 ? text_.append(number == 1 ? "true" : "false")
                                          : text_.append(number);
    }
    case JsonForm::count:
        return text_.append(kind.countIn(value));
    default:
        break;
    }
}

void JsonOutput::putList(const JsonKind& kind, const void* list) {
    const JsonElements& elements = kind.elements;
    const std::int32_t count = elements.count(list);
    if (elements.kind->form == JsonForm::object) {
        begin("[");
        for (std::int32_t index = 0; index < count; ++index)
            put(*elements.kind, elements.at(list, index));
        return end("]");
    }
    startValue();
    for (std::int32_t index = 0; index < count; ++index) { // spare values, on one line
        text_.append(index == 0 ? "[" : ", ");
        putScalar(*elements.kind, elements.at(list, index));
    }
    text_.appendLiteral("]");
}

void JsonOutput::putObject(const JsonKind& kind, const void* record) {
    begin("{");
    for (const JsonMember& member : kind.members)
        if (member.kind->form != JsonForm::ignored) {
            putKey(member.key);
            put(*member.kind, member.valueIn(record));
        }
    end("}");
}

void JsonOutput::put(const JsonKind& kind, const void* value) {
    if (kind.form == JsonForm::object)
        return putObject(kind, value);
    if (kind.form == JsonForm::array)
        return putList(kind, value);
    startValue();
    putScalar(kind, value);
}

void JsonOutput::finish() {
    text_.appendLiteral("\n");
    text_.finish();
}

} // namespace qrtVistrelClasses4
