// Hashes of frames and lines, for finding equal ones among many.
#pragma once

#include <qrtVistrelClasses4/FrameRecord.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace qrtVistrelClasses4 {

/// A hash of all values of records. Most are 0 or empty, and cost nothing. It is another one in each run of a
/// program, so that nobody can make a playfile whose frames all have the same.
class RecordHash {
public:
    /// Adds the values of the frame and of its lines.
    void add(const FrameRecord& frame) {
        addMembers(frame);
        for (const LineRecord& line : frame.lines)
            addMembers(line);
    }
    void add(const LineRecord& line) { addMembers(line); }
    std::size_t value() const { return static_cast<std::size_t>(hash_); }

private:
    static std::uint64_t start() {
        static const auto chosen =
            static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        return mixed(chosen);
    }
    /// Spreads a change of any bit over all bits.
    static constexpr std::uint64_t mixed(std::uint64_t bits) {
        bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EB;
        return bits ^ (bits >> 31U);
    }
    template <class Record>
    void addMembers(const Record& record) {
        ForEachRow(kMembersOf<Record>, [&](const auto& row) { addValue(record.*row.member); });
    }
    template <class Value>
    void addValue(const Value& value) {
        ++place_;
        if (value == Value())
            return;
        hash_ = mixed(hash_ ^ mixed(std::hash<Value>()(value) + place_));
    }
    template <class Value, std::size_t count>
    void addValue(const std::array<Value, count>& values) {
        for (const Value& value : values)
            addValue(value);
    }

    std::uint64_t place_ = 0; ///< Number of values so far.
    std::uint64_t hash_ = start();
};

template <class Record>
std::size_t HashOf(const Record& record) {
    RecordHash hash;
    hash.add(record);
    return hash.value();
}

} // namespace qrtVistrelClasses4
