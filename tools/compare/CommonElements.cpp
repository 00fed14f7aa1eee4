#include "tools/compare/Sequences.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

/// The most elements that are added and removed in a shortest way from one sequence to the other. Its memory
/// grows with the square.
constexpr std::ptrdiff_t kMostEdits = 1000;
/// Steps in search of shortest ways, for one pair of sequences: a tenth of a second.
constexpr std::size_t kMostSteps = 20'000'000;
/// How often a part of the sequences is divided.
constexpr int kMostDivisions = 32;

/// A part of both sequences.
struct Stretch {
    PlacePair first;
    PlacePair end;
    int divisions = 0;

    std::size_t before() const { return end.before - first.before; }
    std::size_t after() const { return end.after - first.after; }
};

std::size_t countOfSymbols(const Symbols& before, const Symbols& after) {
    std::uint32_t largest = 0;
    for (const Symbols* symbols : {&before, &after})
        for (const std::uint32_t symbol : *symbols)
            largest = std::max(largest, symbol);
    return std::size_t{largest} + 1;
}

class CommonSearch {
public:
    CommonSearch(const Symbols& before, const Symbols& after)
        : before_(before), after_(after), places_(countOfSymbols(before, after)) {}

    std::vector<PlacePair> run() {
        stretches_.push_back({{0, 0}, {before_.size(), after_.size()}});
        while (!stretches_.empty()) {
            Stretch stretch = stretches_.back();
            stretches_.pop_back();
            takeEnds(stretch);
            if (stretch.before() > 0 && stretch.after() > 0 && !takeShortestWay(stretch))
                divide(stretch);
        }
        std::ranges::sort(found_, {}, &PlacePair::before);
        return std::move(found_);
    }

private:
    /// Where a symbol is in the stretch that is divided.
    struct Places {
        std::vector<std::size_t> before, after;
    };

    bool areEqual(PlacePair places) const { return before_[places.before] == after_[places.after]; }

    /// Takes the elements that are equal from the start, and from the end.
    void takeEnds(Stretch& stretch) {
        for (; stretch.before() > 0 && stretch.after() > 0 && areEqual(stretch.first);
             ++stretch.first.before, ++stretch.first.after)
            found_.push_back(stretch.first);
        while (stretch.before() > 0 && stretch.after() > 0 &&
               areEqual({stretch.end.before - 1, stretch.end.after - 1}))
            found_.push_back({--stretch.end.before, --stretch.end.after});
    }

    /// Goes on from all ends of ways with one edit less (Myers 1986). A way's end is known by its diagonal,
    /// `before - after`, and how far it got in `before`. Returns false if the shortest way is too long.
    bool takeShortestWay(const Stretch& stretch) {
        const auto rows = static_cast<std::ptrdiff_t>(stretch.before());
        const auto columns = static_cast<std::ptrdiff_t>(stretch.after());
        std::vector<std::vector<std::int32_t>> reached; // by the number of edits, then the diagonal
        for (std::ptrdiff_t edits = 0; edits <= std::min(kMostEdits, rows + columns); ++edits) {
            reached.emplace_back(static_cast<std::size_t>(2 * edits + 1));
            for (std::ptrdiff_t diagonal = -edits; diagonal <= edits; diagonal += 2) {
                std::ptrdiff_t row = startOf(reached, edits, diagonal);
                const std::ptrdiff_t start = row;
                while (row < rows && row - diagonal < columns && row - diagonal >= 0 &&
                       areEqual(placesIn(stretch, row, diagonal)))
                    ++row;
                steps_ += static_cast<std::size_t>(row - start) + 1;
                reached.back()[static_cast<std::size_t>(diagonal + edits)] = static_cast<std::int32_t>(row);
                if (row >= rows && row - diagonal >= columns) {
                    takeWay(stretch, reached, diagonal);
                    return true;
                }
            }
            if (steps_ > kMostSteps)
                return false;
        }
        return false;
    }

    static PlacePair placesIn(const Stretch& stretch, std::ptrdiff_t row, std::ptrdiff_t diagonal) {
        return {stretch.first.before + static_cast<std::size_t>(row),
                stretch.first.after + static_cast<std::size_t>(row - diagonal)};
    }

    using Reached = std::vector<std::vector<std::int32_t>>;
    static std::ptrdiff_t rowAt(const Reached& reached, std::ptrdiff_t edits, std::ptrdiff_t diagonal) {
        return diagonal < -edits || diagonal > edits
                   ? -1
                   : reached[static_cast<std::size_t>(edits)][static_cast<std::size_t>(diagonal + edits)];
    }
    /// Whether the way to this end has removed an element last; otherwise it has added one.
    static bool removesLast(const Reached& reached, std::ptrdiff_t edits, std::ptrdiff_t diagonal) {
        return rowAt(reached, edits - 1, diagonal - 1) >= rowAt(reached, edits - 1, diagonal + 1);
    }
    /// The row where a way begins to follow equal elements after its last edit.
    static std::ptrdiff_t startOf(const Reached& reached, std::ptrdiff_t edits, std::ptrdiff_t diagonal) {
        if (edits == 0)
            return 0;
        return removesLast(reached, edits, diagonal) ? rowAt(reached, edits - 1, diagonal - 1) + 1
                                                     : rowAt(reached, edits - 1, diagonal + 1);
    }

    void takeWay(const Stretch& stretch, const Reached& reached, std::ptrdiff_t diagonal) {
        for (auto edits = static_cast<std::ptrdiff_t>(reached.size()) - 1; edits >= 0; --edits) {
            const std::ptrdiff_t start = startOf(reached, edits, diagonal);
            for (std::ptrdiff_t row = rowAt(reached, edits, diagonal); row > start;)
                found_.push_back(placesIn(stretch, --row, diagonal));
            if (edits > 0)
                diagonal += removesLast(reached, edits, diagonal) ? -1 : 1;
        }
    }

    /// Divides a stretch at the elements that it has once in each sequence. If there are none, each element
    /// is taken to be the same as that with as many equal ones before it.
    void divide(const Stretch& stretch) {
        findPlaces(stretch);
        std::vector<PlacePair> anchors, others;
        for (std::size_t row = stretch.first.before; row < stretch.end.before; ++row) {
            const Places& places = places_[before_[row]];
            if (places.before.size() == 1 && places.after.size() == 1)
                anchors.push_back({row, places.after.front()});
            const auto earlier = static_cast<std::size_t>(std::ranges::lower_bound(places.before, row) -
                                                          places.before.begin());
            if (earlier < places.after.size())
                others.push_back({row, places.after[earlier]});
        }
        forgetPlaces(stretch);
        if (anchors.empty() || stretch.divisions == kMostDivisions) {
            std::ranges::copy(LongestGrowing(others), std::back_inserter(found_));
            return;
        }
        PlacePair start = stretch.first;
        for (const PlacePair& anchor : LongestGrowing(anchors)) {
            found_.push_back(anchor);
            stretches_.push_back({start, anchor, stretch.divisions + 1});
            start = {anchor.before + 1, anchor.after + 1};
        }
        stretches_.push_back({start, stretch.end, stretch.divisions + 1});
    }

    void findPlaces(const Stretch& stretch) {
        for (std::size_t row = stretch.first.before; row < stretch.end.before; ++row)
            places_[before_[row]].before.push_back(row);
        for (std::size_t column = stretch.first.after; column < stretch.end.after; ++column)
            places_[after_[column]].after.push_back(column);
    }
    void forgetPlaces(const Stretch& stretch) {
        for (std::size_t row = stretch.first.before; row < stretch.end.before; ++row)
            places_[before_[row]] = {};
        for (std::size_t column = stretch.first.after; column < stretch.end.after; ++column)
            places_[after_[column]] = {};
    }

    const Symbols& before_;
    const Symbols& after_;
    std::vector<Places> places_; ///< By the symbol.
    std::vector<Stretch> stretches_;
    std::vector<PlacePair> found_;
    std::size_t steps_ = 0;
};

} // namespace

std::vector<PlacePair> CommonElements(const Symbols& before, const Symbols& after) {
    return CommonSearch(before, after).run();
}

std::vector<PlacePair> LongestGrowing(const std::vector<PlacePair>& pairs) {
    constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    std::vector<std::size_t> lasts; // of the runs of each length, the pair with the lowest place in `after`
    std::vector<std::size_t> previous(pairs.size(), none);
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        const auto run = std::ranges::lower_bound(lasts, pairs[index].after, {},
                                                  [&](std::size_t last) { return pairs[last].after; });
        if (run != lasts.begin())
            previous[index] = *(run - 1);
        if (run == lasts.end())
            lasts.push_back(index);
        else
            *run = index;
    }
    std::vector<PlacePair> longest;
    longest.reserve(lasts.size());
    for (std::size_t index = lasts.empty() ? none : lasts.back(); index != none; index = previous[index])
        longest.push_back(pairs[index]);
    std::ranges::reverse(longest);
    return longest;
}

} // namespace qrtVistrelClasses4
