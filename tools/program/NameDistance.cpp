#include "tools/program/NameDistance.h"

#include "platform/LetterCase.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

std::size_t NameDistance(std::string_view one, std::string_view other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < other.size(); ++j) {
            const bool same = AsciiUpper(one[i]) == AsciiUpper(other[j]);
            const std::size_t changed = diagonal + (same ? 0 : 1);
            diagonal = std::exchange(row[j + 1], std::min({row[j] + 1, row[j + 1] + 1, changed}));
        }
    }
    return row.back();
}

} // namespace qrtVistrelClasses4
