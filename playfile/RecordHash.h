// Hashes of frames and lines, for finding equal ones among many.
#pragma once

#include <qrtVistrelClasses4/FrameRecord.h>

#include <array>
#include <bit>
#include <cstddef>
#include <functional>

namespace qrtVistrelClasses4 {

/// A hash of all values of records. Most are 0 or empty, and cost nothing.
class RecordHash {
public:
    /// Adds the values of the frame and of its lines.
    void add(const FrameRecord& frame) {
        addMembers(frame);
        for (const LineRecord& line : frame.lines)
            addMembers(line);
    }
    void add(const LineRecord& line) { addMembers(line); }
    std::size_t value() const { return hash_; }

private:
    template <class Record>
    void addMembers(const Record& record) {
        ForEachRow(kMembersOf<Record>, [&](const auto& row) { addValue(record.*row.member); });
    }
    template <class Value>
    void addValue(const Value& value) {
        ++place_;
        if (value == Value())
            return;
        constexpr std::size_t odd = 0x9E3779B1; // spreads small numbers over all bits
        hash_ = (std::rotl(hash_, 5) ^ (std::hash<Value>()(value) + place_)) * odd;
    }
    template <class Value, std::size_t count>
    void addValue(const std::array<Value, count>& values) {
        for (const Value& value : values)
            addValue(value);
    }

    std::size_t place_ = 0; ///< Number of values so far.
    std::size_t hash_ = 0;
};

template <class Record>
std::size_t HashOf(const Record& record) {
    RecordHash hash;
    hash.add(record);
    return hash.value();
}

} // namespace qrtVistrelClasses4
