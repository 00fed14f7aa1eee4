// Numbers of frames or lines as they are typed: "3", "3-5", "1,4-" or "all".
#pragma once

#include "tools/program/ErrorLines.h"

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// What a help text says about it.
inline constexpr const char* kSelectionHelp = "such as 3, 3-5, \"1,4-\" or all";

/// Any of the numbers from 1 on. The same number may be typed several times, and in any order.
class NumberSelection {
public:
    /// The chosen numbers up to `last`, each once and rising. Returns nothing if a number is typed that is
    /// not one from 1 to `last`, except for "all" of none, after adding an error that calls it by the name of
    /// its argument. `thing` is what is numbered.
    std::optional<std::vector<std::int32_t>> numbers(const char* argument, std::int32_t last,
                                                     const std::string& thing, ErrorLines& errors) const;

    friend std::istream& operator>>(std::istream& in, NumberSelection& selection);

private:
    struct Range {
        std::int32_t first = 1;
        std::optional<std::int32_t> last{}; ///< If empty, to the end.
    };
    /// Nothing if `text` is not "3", "3-5" or "4-".
    static std::optional<Range> rangeFrom(std::string_view text);

    std::vector<Range> ranges_{Range()}; ///< At first, all numbers.
};

/// "frame 3", "frames 3 to 5", "frames 1, 4 to 6", "no frames". The numbers must be rising.
std::string SelectionText(const std::string& thing, const std::vector<std::int32_t>& numbers);

} // namespace qrtVistrelClasses4
