// What two sequences have in common, in time that grows little faster than their length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace qrtVistrelClasses4 {

/// Elements as numbers: equal ones have the same number, and numbers are small.
using Symbols = std::vector<std::uint32_t>;

/// Places in both sequences, from 0.
struct PlacePair {
    std::size_t before = 0;
    std::size_t after = 0;
};

/// Equal elements that come in the same order in both sequences. There are no more of them than that, unless
/// the sequences are long and differ in hundreds of places: then a few may be left out.
std::vector<PlacePair> CommonElements(const Symbols& before, const Symbols& after);

/// The most of the pairs whose places grow in both sequences. `pairs` are in the order of `before`.
std::vector<PlacePair> LongestGrowing(const std::vector<PlacePair>& pairs);

/// The elements of a sequence.
struct Elements {
    Symbols contents;
    Symbols names; ///< 0 for an element without a name.
};

struct ElementMatch {
    PlacePair places;
    bool isMoved = false; ///< The other ones come in the same order in both sequences.
};

/// Which element has become which, in the order of `before`. Equal elements belong together, then those with
/// the same name if no others left have it, then those that are alike and between the same neighbours.
std::vector<ElementMatch> MatchElements(const Elements& before, const Elements& after,
                                        const std::function<int(PlacePair)>& likeness);

} // namespace qrtVistrelClasses4
