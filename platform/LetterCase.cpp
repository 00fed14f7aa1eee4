#include "platform/LetterCase.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

int CompareIgnoringAsciiCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
        return left.size() < right.size() ? -1 : 1;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i] == right[i])
            continue;
        const auto a = static_cast<unsigned char>(AsciiUpper(left[i]));
        const auto b = static_cast<unsigned char>(AsciiUpper(right[i]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return 0;
}

std::string AnsiUpper(std::string_view text) {
    std::string upper(text);
    for (char& character : upper)
        character = AnsiUpper(character);
    return upper;
}

bool EqualIgnoringAnsiCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return a == b || AnsiUpper(a) == AnsiUpper(b); });
}

} // namespace qrtVistrelClasses4
