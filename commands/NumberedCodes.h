// Codes that consist of letters and a number with a fixed count of digits, such as "VBL007".
#pragma once

#include <cstddef>
#include <string_view>

namespace qrtVistrelClasses4 {

struct NumberedCode {
    std::string_view letters;
    std::size_t digits;
    int last; ///< The first is 1.
};

/// User variables.
inline constexpr NumberedCode kVariableCode{"VBL", 3, 416};
inline constexpr NumberedCode kCounterCode{"CR", 2, 16};

} // namespace qrtVistrelClasses4
