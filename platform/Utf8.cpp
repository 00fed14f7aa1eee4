#include "platform/Utf8.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// The code page differs from Unicode here, and only here.
constexpr unsigned char kFirstOwnCode = 0x80;
constexpr std::array<char16_t, 32> kOwnCharacters{
    0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178,
};

bool isOwnCode(char32_t code) {
    return code >= kFirstOwnCode && code < kFirstOwnCode + kOwnCharacters.size();
}

char32_t characterOf(unsigned char code) {
    return isOwnCode(code) ? kOwnCharacters[code - kFirstOwnCode] : code;
}

/// The characters of the code page's own codes, in their order, each with its code.
constexpr auto kCodesOfOwnCharacters = [] {
    std::array<std::pair<char16_t, unsigned char>, kOwnCharacters.size()> codes{};
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = {kOwnCharacters[i], static_cast<unsigned char>(kFirstOwnCode + i)};
    std::ranges::sort(codes);
    return codes;
}();

/// Whether UTF-8 has the character, and as many bytes for it.
bool isEncodedIn(char32_t character, std::size_t size) {
    constexpr std::array<char32_t, 4> smallest{0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xd800 && character < 0xe000;
    return character >= smallest[size - 1] && character <= 0x10ffff && !isSurrogate;
}

} // namespace

void AppendUtf8(std::string& text, char32_t character) {
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | ((character >> shift) & 0x3f)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xc0 | (character >> 6));
        text += tail(0);
    } else {
        if (character < 0x10000) {
            text += static_cast<char>(0xe0 | (character >> 12));
        } else {
            text += static_cast<char>(0xf0 | (character >> 18));
            text += tail(12);
        }
        text += tail(6);
        text += tail(0);
    }
}

std::optional<char32_t> TakeUtf8Character(std::string_view& utf8) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    if (utf8.size() > 1 && byte(0) >= 0xc2 && byte(0) < 0xe0 && (byte(1) & 0xc0) == 0x80) { // as most are
        const char32_t character = static_cast<char32_t>(byte(0) & 0x1f) << 6 | (byte(1) & 0x3f);
        utf8.remove_prefix(2);
        return character;
    }
    const std::size_t size = byte(0) < 0x80 ? 1 : byte(0) < 0xe0 ? 2 : byte(0) < 0xf0 ? 3 : 4;
    if ((size > 1 && byte(0) < 0xc0) || byte(0) >= 0xf8 || utf8.size() < size)
        return std::nullopt;
    char32_t character = size == 1 ? byte(0) : byte(0) & (0x7f >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(i) & 0xc0) != 0x80)
            return std::nullopt;
        character = character << 6 | (byte(i) & 0x3f);
    }
    if (!isEncodedIn(character, size))
        return std::nullopt;
    utf8.remove_prefix(size);
    return character;
}

std::optional<char> AnsiFromCharacter(char32_t character) {
    if (character <= 0xff && !isOwnCode(character))
        return static_cast<char>(character);
    const auto* const found = std::ranges::lower_bound(kCodesOfOwnCharacters, character, {},
                                                       [](const auto& pair) { return char32_t{pair.first}; });
    if (found == kCodesOfOwnCharacters.end() || found->first != character)
        return std::nullopt;
    return static_cast<char>(found->second);
}

std::string Utf8FromAnsi(std::string_view ansi) {
    std::string utf8;
    for (const char code : ansi)
        AppendUtf8(utf8, characterOf(static_cast<unsigned char>(code)));
    return utf8;
}

std::optional<std::string> AnsiFromUtf8(std::string_view utf8) {
    std::string ansi(utf8.size(), '\0'); // which is at least as long
    char* end = ansi.data();
    while (!utf8.empty()) {
        if (static_cast<unsigned char>(utf8.front()) < kFirstOwnCode) { // as most are
            *end++ = utf8.front();
            utf8.remove_prefix(1);
            continue;
        }
        const auto character = TakeUtf8Character(utf8);
        const auto code = character ? AnsiFromCharacter(*character) : std::nullopt;
        if (!code)
            return std::nullopt;
        *end++ = *code;
    }
    ansi.resize(static_cast<std::size_t>(end - ansi.data()));
    return ansi;
}

} // namespace qrtVistrelClasses4
