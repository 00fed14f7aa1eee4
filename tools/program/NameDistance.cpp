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

void NearestName::offer(std::string_view name, std::string_view spelling) {
    // Two letters may be wrong, and more in a long name, but never most of a short one.
    constexpr std::size_t always = 2;
    const std::size_t most = std::min(std::max(always, typed_.size() / 3), typed_.size() / 2);
    const std::size_t distance = NameDistance(spelling, typed_);
    if (distance > most || (!name_.empty() && distance >= distance_))
        return;
    name_ = name;
    distance_ = distance;
}

} // namespace qrtVistrelClasses4
