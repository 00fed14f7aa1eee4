#include "tools/compare/Sequences.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kUnmatched = std::numeric_limits<std::size_t>::max();
/// The most pairs between two neighbours whose likeness is looked at; of more elements, the first belongs to
/// the first, and so on.
constexpr std::size_t kMostPairsCompared = 1024;

class ElementMatcher {
public:
    ElementMatcher(const Elements& before, const Elements& after,
                   const std::function<int(PlacePair)>& likeness)
        : before_(before), after_(after), likeness_(likeness), afterOf_(before.contents.size(), kUnmatched),
          beforeOf_(after.contents.size(), kUnmatched) {}

    std::vector<ElementMatch> run() {
        for (const PlacePair& pair : CommonElements(before_.contents, after_.contents))
            match(pair);
        matchLeftOver(&Elements::contents, false);
        matchLeftOver(&Elements::names, true);
        matchBetweenNeighbours();
        return result();
    }

private:
    void match(PlacePair pair) {
        afterOf_[pair.before] = pair.after;
        beforeOf_[pair.after] = pair.before;
    }

    /// Matches elements that have the same symbol but 0: the first with the first, and so on. If they
    /// `mustBeOnly`, only those without others of that symbol.
    void matchLeftOver(Symbols Elements::*symbols, bool mustBeOnly) {
        struct Places {
            std::vector<std::size_t> before, after;
        };
        std::unordered_map<std::uint32_t, Places> left;
        for (std::size_t place = 0; place < afterOf_.size(); ++place)
            if (const std::uint32_t symbol = (before_.*symbols)[place];
                symbol != 0 && afterOf_[place] == kUnmatched)
                left[symbol].before.push_back(place);
        for (std::size_t place = 0; place < beforeOf_.size(); ++place)
            if (const std::uint32_t symbol = (after_.*symbols)[place];
                symbol != 0 && beforeOf_[place] == kUnmatched)
                left[symbol].after.push_back(place);
        for (const auto& [symbol, places] : left) {
            const std::size_t count = std::min(places.before.size(), places.after.size());
            if (mustBeOnly && std::max(places.before.size(), places.after.size()) > 1)
                continue;
            for (std::size_t index = 0; index < count; ++index)
                match({places.before[index], places.after[index]});
        }
    }

    std::vector<PlacePair> matches() const {
        std::vector<PlacePair> pairs;
        for (std::size_t place = 0; place < afterOf_.size(); ++place)
            if (afterOf_[place] != kUnmatched)
                pairs.push_back({place, afterOf_[place]});
        return pairs;
    }

    void matchBetweenNeighbours() {
        PlacePair start;
        std::vector<PlacePair> neighbours = LongestGrowing(matches());
        neighbours.push_back({afterOf_.size(), beforeOf_.size()});
        for (const PlacePair& neighbour : neighbours) {
            std::vector<std::size_t> before, after;
            for (std::size_t place = start.before; place < neighbour.before; ++place)
                if (afterOf_[place] == kUnmatched)
                    before.push_back(place);
            for (std::size_t place = start.after; place < neighbour.after; ++place)
                if (beforeOf_[place] == kUnmatched)
                    after.push_back(place);
            if (before.size() * after.size() <= kMostPairsCompared)
                matchAlike(before, after);
            else
                for (std::size_t index = 0; index < std::min(before.size(), after.size()); ++index)
                    match({before[index], after[index]});
            start = {neighbour.before + 1, neighbour.after + 1};
        }
    }

    /// Matches elements in the same order so that the likeness of all pairs together is the largest.
    void matchAlike(const std::vector<std::size_t>& before, const std::vector<std::size_t>& after) {
        if (before.empty() || after.empty())
            return;
        const std::size_t width = after.size() + 1;
        std::vector<int> best((before.size() + 1) * width); // of what is left from two elements on
        const auto gain = [&](std::size_t row, std::size_t column) {
            return likeness_({before[row], after[column]}) + best[(row + 1) * width + column + 1];
        };
        std::vector<bool> isPair(best.size());
        for (std::size_t row = before.size(); row-- > 0;)
            for (std::size_t column = after.size(); column-- > 0;) {
                const std::size_t cell = row * width + column;
                const int paired = gain(row, column);
                best[cell] = std::max({paired, best[cell + width], best[cell + 1]});
                isPair[cell] = best[cell] == paired;
            }
        for (std::size_t row = 0, column = 0; row < before.size() && column < after.size();) {
            const std::size_t cell = row * width + column;
            if (isPair[cell])
                match({before[row++], after[column++]});
            else if (best[cell] == best[cell + width])
                ++row;
            else
                ++column;
        }
    }

    std::vector<ElementMatch> result() const {
        const std::vector<PlacePair> pairs = matches();
        const std::vector<PlacePair> staying = LongestGrowing(pairs);
        std::vector<ElementMatch> result;
        result.reserve(pairs.size());
        auto stays = staying.begin();
        for (const PlacePair& pair : pairs) {
            const bool isMoved = stays == staying.end() || stays->before != pair.before;
            result.push_back({pair, isMoved});
            stays += isMoved ? 0 : 1;
        }
        return result;
    }

    const Elements& before_;
    const Elements& after_;
    const std::function<int(PlacePair)>& likeness_;
    std::vector<std::size_t> afterOf_, beforeOf_;
};

} // namespace

std::vector<ElementMatch> MatchElements(const Elements& before, const Elements& after,
                                        const std::function<int(PlacePair)>& likeness) {
    return ElementMatcher(before, after, likeness).run();
}

} // namespace qrtVistrelClasses4
