#include "tools/exchange/JsonOutput.h"

#include "platform/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kCommaAndLineEnd = 2;
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

/// What a character of Windows-1252 is in a text of JSON.
struct Spelling {
    std::array<char, 8> text{};
    std::size_t size = 0;
};

std::array<Spelling, 256> makeSpellings() {
    std::array<Spelling, 256> all;
    for (std::size_t code = 0; code < all.size(); ++code) {
        const std::string utf8 = Utf8FromAnsi(std::string(1, static_cast<char>(code)));
        std::string_view rest = utf8;
        std::string escaped;
        appendEscaped(escaped, TakeUtf8Character(rest).value_or(kReplacementCharacter));
        std::ranges::copy(escaped, all[code].text.begin());
        all[code].size = escaped.size();
    }
    return all;
}

/// Whether a value is 0, empty or false.
bool isEmpty(const JsonKind& kind, const void* value) {
    switch (kind.form) {
    case JsonForm::text:
        return static_cast<const std::string*>(value)->empty();
    case JsonForm::int16:
        return *static_cast<const std::int16_t*>(value) == 0;
    case JsonForm::int32:
        return *static_cast<const std::int32_t*>(value) == 0;
    case JsonForm::flag:
        return !*static_cast<const bool*>(value);
    default:
        return false;
    }
}

/// Whether all values in a list are, as spare values mostly are.
bool areEmpty(const JsonElements& elements, const void* list) {
    for (std::int32_t index = 0; index < elements.most; ++index)
        if (!isEmpty(*elements.kind, elements.at(list, index)))
            return false;
    return true;
}

bool areSpareValues(const JsonKind& kind) {
    return kind.form == JsonForm::array && kind.elements.kind->form != JsonForm::object;
}

/// The spare values of that kind that are empty, on one line.
std::string emptyValuesOf(const JsonElements& elements) {
    const JsonForm form = elements.kind->form;
    const std::string_view one = form == JsonForm::text ? "\"\"" : form == JsonForm::flag ? "false" : "0";
    std::string all;
    for (std::int32_t index = 0; index < elements.most; ++index)
        all.append(index == 0 ? "[" : ", ").append(one);
    return all + "]";
}

} // namespace

std::string_view JsonOutput::lineStart() const {
    return kLineStart.substr(0, kCommaAndLineEnd + depth_ * kIndent);
}

void JsonOutput::startLine() {
    text_.append(lineStart().substr(isFirst_ ? 1 : 0));
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
    constexpr std::size_t pieceSize = 256;
    static const std::array<Spelling, 256> spellings = makeSpellings();
    text_.appendLiteral("\"");
    for (; !ansi.empty(); ansi.remove_prefix(std::min(pieceSize, ansi.size()))) {
        const std::string_view piece = ansi.substr(0, pieceSize);
        text_.appendUpTo(piece.size() * sizeof(Spelling::text), [&](char* end) {
            for (const char code : piece) {
                const Spelling& spelling = spellings[static_cast<unsigned char>(code)];
                std::memcpy(end, spelling.text.data(), spelling.text.size()); // a fixed size is faster
                end += spelling.size;
            }
            return end;
        });
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

void JsonOutput::putRecords(const JsonElements& elements, const void* list) {
    begin("[");
    const std::int32_t count = elements.count(list);
    for (std::int32_t index = 0; index < count; ++index)
        put(*elements.kind, elements.at(list, index));
    end("]");
}

void JsonOutput::putSpareValues(const JsonElements& elements, const void* list) {
    for (std::int32_t index = 0; index < elements.most; ++index) {
        text_.append(index == 0 ? "[" : ", ");
        putScalar(*elements.kind, elements.at(list, index));
    }
    text_.appendLiteral("]");
}

const JsonOutput::Layout& JsonOutput::layoutOf(const JsonKind& kind) {
    for (const Layout& layout : layouts_)
        if (layout.kind == &kind && layout.depth == depth_)
            return layout;
    Layout& made = layouts_.emplace_back(Layout{&kind, depth_});
    for (const JsonMember& member : kind.members) {
        made.starts.push_back(std::string(lineStart()).append("\"").append(member.key).append("\": "));
        made.emptyValues.push_back(areSpareValues(*member.kind) ? emptyValuesOf(member.kind->elements) : "");
    }
    return made;
}

void JsonOutput::putObject(const JsonKind& kind, const void* record) {
    begin("{");
    const Layout& layout = layoutOf(kind);
    for (std::size_t place = 0; place < kind.members.size(); ++place) {
        const JsonMember& member = kind.members[place];
        if (member.kind->form == JsonForm::ignored)
            continue;
        text_.append(std::string_view(layout.starts[place]).substr(isFirst_ ? 1 : 0));
        isFirst_ = false;
        hasKey_ = true;
        const void* const value = member.valueIn(record);
        if (!layout.emptyValues[place].empty() && areEmpty(member.kind->elements, value)) {
            text_.append(layout.emptyValues[place]);
            hasKey_ = false;
        } else {
            put(*member.kind, value);
        }
    }
    end("}");
}

void JsonOutput::put(const JsonKind& kind, const void* value) {
    if (kind.form == JsonForm::object)
        return putObject(kind, value);
    if (kind.form == JsonForm::array && !areSpareValues(kind))
        return putRecords(kind.elements, value);
    startValue();
    if (kind.form == JsonForm::array)
        putSpareValues(kind.elements, value);
    else
        putScalar(kind, value);
}

void JsonOutput::finish() {
    text_.appendLiteral("\n");
    text_.finish();
}

} // namespace qrtVistrelClasses4
