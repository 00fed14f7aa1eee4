// Codes that consist of letters and a number with a fixed count of digits, such as "VBL007".
#pragma once

#include <cstddef>
#include <string_view>

namespace qrtVistrelClasses4 {

struct NumberedCode {
    std::string_view letters;
    std::size_t digits;
    int last; ///< The first is 1.

    /// The number of a code of this kind, in decimal digits. 0 if there is none, or it has more digits.
    constexpr int numberOf(std::string_view text) const {
        int number = 0;
        for (const char digit : text.substr(0, digits)) {
            if (digit < '0' || digit > '9')
                return 0;
            number = number * 10 + (digit - '0');
        }
        return text.size() <= digits && number <= last ? number : 0;
    }
};

/// User variables.
inline constexpr NumberedCode kVariableCode{"VBL", 3, 416};
inline constexpr NumberedCode kCounterCode{"CR", 2, 16};

} // namespace qrtVistrelClasses4
