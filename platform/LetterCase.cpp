#include "platform/LetterCase.h"

namespace qrtVistrelClasses4 {

int CompareIgnoringAsciiCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
        return left.size() < right.size() ? -1 : 1;
    if (left == right) // as is usual, and quick to see
        return 0;
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

} // namespace qrtVistrelClasses4
