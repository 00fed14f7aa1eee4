// The letters of Windows-1252, which no locale of the system has to provide.
#include "platform/LetterCase.h"

#include <algorithm>
#include <array>

namespace qrtVistrelClasses4 {
namespace {

constexpr char upperOf(unsigned char code) {
    const auto character = static_cast<char>(code);
    switch (code) {
    case 0x9a:
    case 0x9c:
    case 0x9e: // s and z with caron, oe
        return static_cast<char>(code - 0x10);
    case 0xff: // y with diaeresis
        return static_cast<char>(0x9f);
    case 0xf7: // the division sign is among the letters
        return character;
    default:
        return code >= 0xe0 ? static_cast<char>(code - 0x20) : AsciiUpper(character);
    }
}

constexpr auto kUpper = [] {
    std::array<char, 256> letters{};
    for (std::size_t code = 0; code < letters.size(); ++code)
        letters[code] = upperOf(static_cast<unsigned char>(code));
    return letters;
}();

constexpr char upper(char character) { return kUpper[static_cast<unsigned char>(character)]; }

} // namespace

std::string AnsiUpperCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upper);
    return result;
}

bool EqualIgnoringAnsiCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, [](char a, char b) { return a == b || upper(a) == upper(b); });
}

} // namespace qrtVistrelClasses4
