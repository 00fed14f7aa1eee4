// How one playfile became another: everything that is needed to make the second of the first.
#pragma once

#include "tools/compare/StoredValues.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

struct ValueDifference {
    std::string name;      ///< Of the values of the row.
    std::size_t index = 0; ///< In the values of a row that is an array, from 0.
    StoredValue before, after;

    bool operator==(const ValueDifference&) const = default;
};

/// A record that is not the same, or not in the same place, in both lists. Numbers are from 1.
template <class Record>
struct RecordDifference {
    std::int32_t before = 0;             ///< Its number in the first list; 0 if it was added.
    std::int32_t after = 0;              ///< Its number in the second list; 0 if it was removed.
    bool isMoved = false;                ///< Others have the same order in both lists.
    Record record;                       ///< As it was before, or as it was added.
    std::vector<ValueDifference> values; ///< In the order of the member table.

    bool isAdded() const { return before == 0; }
    bool isRemoved() const { return after == 0; }

    bool operator==(const RecordDifference&) const = default;
};

using LineDifference = RecordDifference<LineRecord>;

struct FrameDifference : RecordDifference<FrameRecord> {
    std::vector<LineDifference> lines; ///< Of a frame that both playfiles have.

    bool isChanged() const { return !values.empty() || !lines.empty(); }

    bool operator==(const FrameDifference&) const = default;
};

/// In the order of the second playfile; a removed frame comes where it would be there. Frames that are not
/// named are the same in both playfiles, and in the same order.
using Differences = std::vector<FrameDifference>;

Differences DifferencesBetween(const OneBasedArray<FrameRecord>& before,
                               const OneBasedArray<FrameRecord>& after);

/// The second playfile's frames, made of the first one's. Returns nothing if the differences are not those
/// of these frames.
std::optional<OneBasedArray<FrameRecord>> WithDifferences(const OneBasedArray<FrameRecord>& before,
                                                          const Differences& differences);

} // namespace qrtVistrelClasses4
