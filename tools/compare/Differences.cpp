#include "tools/compare/Differences.h"

#include "playfile/RecordHash.h"
#include "tools/compare/Sequences.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_map>

namespace qrtVistrelClasses4 {
namespace {

template <class Record>
using Records = OneBasedArray<Record>;

/// Gives equal records the same number, from 1.
template <class Record>
class ContentNumbers {
public:
    std::uint32_t of(const Record& record) {
        return numbers_
            .try_emplace({HashOf(record), &record}, static_cast<std::uint32_t>(numbers_.size() + 1))
            .first->second;
    }

private:
    struct Key {
        std::size_t hash = 0;
        const Record* record = nullptr;
        bool operator==(const Key& other) const { return hash == other.hash && *record == *other.record; }
    };
    struct HashOfKey {
        std::size_t operator()(const Key& key) const { return key.hash; }
    };
    std::unordered_map<Key, std::uint32_t, HashOfKey> numbers_;
};

/// Gives equal names the same number, and records without a name 0.
class NameNumbers {
public:
    std::uint32_t of(const FrameRecord& frame) {
        return frame.FrameName.empty()
                   ? 0
                   : numbers_.try_emplace(frame.FrameName, static_cast<std::uint32_t>(numbers_.size() + 1))
                         .first->second;
    }
    static std::uint32_t of(const LineRecord&) { return 0; }

private:
    std::unordered_map<std::string_view, std::uint32_t> numbers_;
};

template <class Record>
Elements elementsOf(const Records<Record>& records, ContentNumbers<Record>& contents, NameNumbers& names) {
    Elements elements;
    elements.contents.reserve(static_cast<std::size_t>(records.upperBound()));
    elements.names.reserve(static_cast<std::size_t>(records.upperBound()));
    for (const Record& record : records) {
        elements.contents.push_back(contents.of(record));
        elements.names.push_back(names.of(record));
    }
    return elements;
}

/// How alike two values are; 0 if both are empty. A text counts as much as several numbers.
template <class Value>
int likenessOf(const Value& one, const Value& other) {
    if constexpr (std::is_same_v<Value, std::string>) {
        constexpr std::size_t most = 16;
        const std::size_t shorter = std::min(one.size(), other.size());
        const auto start = static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
        std::size_t end = 0;
        while (end < shorter - start && one[one.size() - 1 - end] == other[other.size() - 1 - end])
            ++end;
        return static_cast<int>(most * 2 * (start + end) /
                                std::max<std::size_t>(one.size() + other.size(), 1));
    } else {
        return one == other && one != Value() ? 1 : 0;
    }
}

template <class Record>
int likenessOfRecords(const Record& one, const Record& other) {
    int likeness = 0;
    ForEachStoredValue([&](const auto&, std::size_t, const auto& first,
                           const auto& second) { likeness += likenessOf(first, second); },
                       one, other);
    if constexpr (requires { one.lines; })
        for (std::int32_t number = std::min(one.lines.upperBound(), other.lines.upperBound()); number > 0;
             --number)
            likeness += likenessOfRecords(one.lines.at(number), other.lines.at(number));
    return likeness;
}

template <class Record>
std::vector<ValueDifference> valueChanges(const Record& before, const Record& after) {
    std::vector<ValueDifference> changes;
    ForEachStoredValue(
        [&](const auto& row, std::size_t index, const auto& first, const auto& second) {
            if (first != second)
                changes.push_back({NameOfStored(row), index, first, second});
        },
        before, after);
    return changes;
}

std::int32_t numberAt(std::size_t place) { return static_cast<std::int32_t>(place) + 1; }

template <class Change>
struct ChangeOf;
template <>
struct ChangeOf<LineRecord> {
    using Type = LineDifference;
};
template <>
struct ChangeOf<FrameRecord> {
    using Type = FrameDifference;
};

/// Finds how a list of records became another one.
template <class Record>
class ListComparison {
public:
    using Change = typename ChangeOf<Record>::Type;

    ListComparison(const Records<Record>& before, const Records<Record>& after)
        : before_(before), after_(after) {}

    std::vector<Change> run() {
        NameNumbers names;
        ContentNumbers<Record> contents;
        const Elements first = elementsOf(before_, contents, names);
        const Elements second = elementsOf(after_, contents, names);
        const std::vector<ElementMatch> matches = MatchElements(first, second, [this](PlacePair places) {
            return likenessOfRecords(before_.at(numberAt(places.before)), after_.at(numberAt(places.after)));
        });
        std::vector<bool> isOld(second.contents.size());
        auto match = matches.begin();
        for (std::size_t place = 0; place < first.contents.size(); ++place)
            if (match == matches.end() || match->places.before != place) {
                addRemoved(numberAt(place));
            } else {
                isOld[match->places.after] = true;
                if (match->isMoved || first.contents[place] != second.contents[match->places.after])
                    addMatch(*match);
                if (!match->isMoved)
                    lastStaying_ = numberAt(match->places.after);
                ++match;
            }
        for (std::size_t place = 0; place < isOld.size(); ++place)
            if (!isOld[place])
                addAdded(numberAt(place));
        return inOrder();
    }

private:
    void add(Change change, std::int32_t number, bool isAfter) {
        order_.push_back({number, isAfter, changes_.size()});
        changes_.push_back(std::move(change));
    }
    void addRemoved(std::int32_t number) {
        Change change;
        change.before = number;
        change.record = before_.at(number);
        add(std::move(change), lastStaying_, true);
    }
    void addAdded(std::int32_t number) {
        Change change;
        change.after = number;
        change.record = after_.at(number);
        add(std::move(change), number, false);
    }
    void addMatch(const ElementMatch& match) {
        Change change;
        change.before = numberAt(match.places.before);
        change.after = numberAt(match.places.after);
        change.isMoved = match.isMoved;
        const Record& first = before_.at(change.before);
        const Record& second = after_.at(change.after);
        change.values = valueChanges(first, second);
        if constexpr (requires { change.lines; })
            change.lines = ListComparison<LineRecord>(first.lines, second.lines).run();
        change.record = first;
        const std::int32_t number = change.after;
        add(std::move(change), number, false);
    }

    std::vector<Change> inOrder() {
        std::ranges::sort(order_, {}, [](const Place& place) {
            return std::tuple(place.number, place.isAfter, place.index);
        });
        std::vector<Change> sorted;
        sorted.reserve(changes_.size());
        for (const Place& place : order_)
            sorted.push_back(std::move(changes_[place.index]));
        return sorted;
    }

    /// Where a change comes: at or after a number of the second list.
    struct Place {
        std::int32_t number = 0;
        bool isAfter = false;
        std::size_t index = 0;
    };

    const Records<Record>& before_;
    const Records<Record>& after_;
    std::int32_t lastStaying_ = 0;
    std::vector<Change> changes_;
    std::vector<Place> order_;
};

/// False if a value is not what it was before.
template <class Record>
bool changeValues(Record& record, const std::vector<ValueDifference>& changes) {
    auto change = changes.begin();
    bool isRight = true;
    ForEachStoredValue(
        [&]<class Value>(const auto& row, std::size_t index, Value& value) {
            if (change == changes.end() || change->index != index || change->name != NameOfStored(row))
                return;
            isRight = isRight && change->before == StoredValue(value);
            if (const Value* const after = std::get_if<Value>(&change->after))
                value = *after;
            ++change;
        },
        record);
    return isRight && change == changes.end();
}

/// Makes the second list of the first.
template <class Record>
class ListChange {
public:
    using Change = typename ChangeOf<Record>::Type;

    explicit ListChange(const Records<Record>& before)
        : before_(before), isTaken_(static_cast<std::size_t>(before.upperBound())) {}

    std::optional<Records<Record>> run(const std::vector<Change>& changes) {
        auto count = static_cast<std::ptrdiff_t>(before_.upperBound());
        for (const Change& change : changes)
            count += (change.isAdded() ? 1 : 0) - (change.isRemoved() ? 1 : 0);
        if (count < 0)
            return std::nullopt;
        made_.resize(static_cast<std::size_t>(count));
        for (const Change& change : changes)
            if (!take(change))
                return std::nullopt;
        return complete();
    }

private:
    bool take(const Change& change) {
        Record record = change.record;
        if (!change.isAdded()) {
            const auto place = static_cast<std::size_t>(change.before) - 1;
            if (!before_.contains(change.before) || isTaken_[place] || before_.at(change.before) != record)
                return false;
            isTaken_[place] = true;
        }
        if (change.isRemoved())
            return true;
        const auto place = static_cast<std::size_t>(change.after) - 1;
        if (place >= made_.size() || made_[place] || !changeValues(record, change.values))
            return false;
        if constexpr (requires { change.lines; }) {
            auto lines = ListChange<LineRecord>(record.lines).run(change.lines);
            if (!lines)
                return false;
            record.lines = *std::move(lines);
        }
        made_[place] = std::move(record);
        return true;
    }

    /// The records that no change names keep their order.
    std::optional<Records<Record>> complete() {
        Records<Record> result(static_cast<std::int32_t>(made_.size()));
        std::int32_t next = 1;
        for (std::size_t place = 0; place < made_.size(); ++place) {
            if (made_[place]) {
                result.at(numberAt(place)) = *std::move(made_[place]);
                continue;
            }
            while (before_.contains(next) && isTaken_[static_cast<std::size_t>(next) - 1])
                ++next;
            if (!before_.contains(next))
                return std::nullopt;
            result.at(numberAt(place)) = before_.at(next++);
        }
        return result;
    }

    const Records<Record>& before_;
    std::vector<bool> isTaken_;
    std::vector<std::optional<Record>> made_;
};

} // namespace

Differences DifferencesBetween(const OneBasedArray<FrameRecord>& before,
                               const OneBasedArray<FrameRecord>& after) {
    return ListComparison<FrameRecord>(before, after).run();
}

std::optional<OneBasedArray<FrameRecord>> WithDifferences(const OneBasedArray<FrameRecord>& before,
                                                          const Differences& differences) {
    return ListChange<FrameRecord>(before).run(differences);
}

} // namespace qrtVistrelClasses4
