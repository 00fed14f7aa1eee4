#include "playfile/FrameChange.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <numeric>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

// Changes are made by moves, which therefore must not fail half way.
static_assert(std::is_nothrow_move_constructible_v<FrameRecord>);
static_assert(std::is_nothrow_move_assignable_v<FrameRecord>);
static_assert(std::is_nothrow_default_constructible_v<FrameRecord>);

using FrameSpan = std::span<const FrameRecord>;

/// A hash of all values of a record.
class RecordHash {
public:
    std::size_t value() const { return hash_; }

    void add(const FrameRecord& frame) {
        addMembers(frame);
        add(frame.lines.upperBound());
        for (const LineRecord& line : frame.lines)
            addMembers(line);
    }

private:
    template <class Record>
    void addMembers(const Record& record) {
        ForEachRow(kMembersOf<Record>, [&](const auto& row) { add(record.*row.member); });
    }
    template <class Value>
    void add(const Value& value) {
        constexpr std::size_t odd = 0x9E3779B1; // spreads small numbers over all bits
        hash_ = (std::rotl(hash_, 5) ^ std::hash<Value>()(value)) * odd;
    }
    template <class Value, std::size_t count>
    void add(const std::array<Value, count>& values) {
        for (const Value& value : values)
            add(value);
    }

    std::size_t hash_ = 0;
};

std::size_t hashOf(const FrameRecord& frame) {
    RecordHash hash;
    hash.add(frame);
    return hash.value();
}

/// Finds frames by their content, each once. Of those that are the same, the first one is found first.
class FrameFinder {
public:
    explicit FrameFinder(FrameSpan frames)
        : frames_(frames), isTaken_(frames.size()), hashes_(frames.size()), next_(frames.size(), kNone),
          heads_(std::bit_ceil(frames.size()), kNone) {
        for (std::size_t index = frames.size(); index-- > 0;) {
            hashes_[index] = hashOf(frames[index]);
            std::size_t& head = headOf(hashes_[index]);
            next_[index] = std::exchange(head, index);
        }
    }

    /// The index of a frame that is the same as `frame`: `likely`, or else another one.
    std::optional<std::size_t> take(const FrameRecord& frame, std::size_t likely) {
        if (likely < frames_.size() && !isTaken_[likely] && IsSameFrame(frames_[likely], frame))
            return taken(likely);
        const std::size_t hash = hashOf(frame);
        for (std::size_t* link = &headOf(hash); *link != kNone;) {
            const std::size_t index = *link;
            if (isTaken_[index])
                *link = next_[index]; // so that later searches need not pass it
            else if (hashes_[index] == hash && IsSameFrame(frames_[index], frame))
                return taken(index);
            else
                link = &next_[index];
        }
        return std::nullopt;
    }

private:
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

    std::size_t& headOf(std::size_t hash) { return heads_[hash & (heads_.size() - 1)]; }
    std::size_t taken(std::size_t index) {
        isTaken_[index] = true;
        return index;
    }

    FrameSpan frames_;
    std::vector<bool> isTaken_;
    std::vector<std::size_t> hashes_;
    std::vector<std::size_t> next_;  ///< The next frame whose hash has the same head.
    std::vector<std::size_t> heads_; ///< By the last bits of hashes.
};

std::vector<SharedFrames> sharedBetween(FrameSpan before, FrameSpan after) {
    std::vector<SharedFrames> shared;
    if (before.empty() || after.empty() || before.size() + after.size() == 2) // one frame that has changed
        return shared;
    FrameFinder finder(before);
    SharedFrames run;
    for (std::size_t index = 0; index < after.size(); ++index) {
        const std::size_t likely = run.before + run.count;
        const std::optional<std::size_t> found = finder.take(after[index], likely);
        if (!found)
            continue;
        if (run.count > 0 && *found == likely && index == run.after + run.count) {
            run = {run.before, run.after, run.count + 1};
            shared.back() = run;
        } else {
            run = {*found, index, 1};
            shared.push_back(run);
        }
    }
    return {shared.begin(), shared.end()}; // in as much memory as it takes
}

std::size_t countShared(const FrameChange& change) {
    return std::accumulate(change.shared.begin(), change.shared.end(), std::size_t{0},
                           [](std::size_t sum, const SharedFrames& run) { return sum + run.count; });
}

/// For each frame of the part on one side of a change, whether it is shared.
std::vector<bool> sharedOn(const FrameChange& change, std::size_t SharedFrames::*side, std::size_t size) {
    std::vector<bool> isShared(size);
    for (const SharedFrames& run : change.shared)
        std::fill_n(isShared.begin() + static_cast<std::ptrdiff_t>(run.*side), run.count, true);
    return isShared;
}

/// Calls `visit(index)` for each frame that is not shared.
template <class Visit>
void forEachOther(const std::vector<bool>& isShared, Visit visit) {
    for (std::size_t index = 0; index < isShared.size(); ++index)
        if (!isShared[index])
            visit(index);
}

/// Turns a change whose `added` frames are in the list, and that now keeps `removed` frames, round.
void turnRound(FrameChange& change, std::vector<FrameRecord>& removed) {
    change.added.swap(removed);
    std::swap(change.before, change.after);
    for (SharedFrames& run : change.shared)
        std::swap(run.before, run.after);
}

std::size_t bytesIn(const std::string& text) { return BytesOfText(text); }
template <std::size_t count>
std::size_t bytesIn(const std::array<std::string, count>& texts) {
    return std::accumulate(texts.begin(), texts.end(), std::size_t{0},
                           [](std::size_t sum, const std::string& text) { return sum + BytesOfText(text); });
}
template <class Number>
std::size_t bytesIn(const Number&) {
    return 0;
}

/// Bytes that the texts of a record take.
template <class Record>
std::size_t bytesOfTexts(const Record& record) {
    std::size_t bytes = 0;
    ForEachRow(kMembersOf<Record>, [&](const auto& row) { bytes += bytesIn(record.*row.member); });
    return bytes;
}

} // namespace

bool FrameChange::isInPlace() const {
    return std::ranges::all_of(shared, [](const SharedFrames& run) { return run.before == run.after; });
}

bool IsSameFrame(const FrameRecord& one, const FrameRecord& other) {
    return one == other && std::signbit(one.DelayTime) == std::signbit(other.DelayTime);
}

std::optional<FrameChange> ChangeBetween(const FrameList& before, const FrameList& after) {
    const auto [oldFirst, newFirst] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), IsSameFrame);
    if (oldFirst == before.end() && newFirst == after.end())
        return std::nullopt;
    const auto [oldEnd, newEnd] = std::mismatch(
        std::make_reverse_iterator(before.end()), std::make_reverse_iterator(oldFirst),
        std::make_reverse_iterator(after.end()), std::make_reverse_iterator(newFirst), IsSameFrame);
    const FrameSpan oldPart(oldFirst, oldEnd.base());
    const FrameSpan newPart(newFirst, newEnd.base());
    FrameChange change;
    change.first = static_cast<std::size_t>(oldFirst - before.begin());
    change.before = oldPart.size();
    change.after = newPart.size();
    change.shared = sharedBetween(oldPart, newPart);
    change.added.reserve(newPart.size() - countShared(change));
    forEachOther(sharedOn(change, &SharedFrames::after, newPart.size()),
                 [&](std::size_t index) { change.added.push_back(newPart[index]); });
    return change;
}

void MakeChange(FrameList& frames, FrameChange& change) {
    const std::vector<bool> stays = sharedOn(change, &SharedFrames::before, change.before);
    const std::vector<bool> isThere = sharedOn(change, &SharedFrames::after, change.after);
    std::vector<FrameRecord> part(change.after), removed;
    removed.reserve(change.before - countShared(change));
    const std::int32_t oldBound = frames.upperBound();
    const auto bound =
        static_cast<std::int32_t>(static_cast<std::size_t>(oldBound) - change.before + change.after);
    if (bound > oldBound)
        frames.resize(bound);
    // Nothing fails from here on.
    const auto first = frames.begin() + static_cast<std::ptrdiff_t>(change.first);
    const auto oldEnd = first + static_cast<std::ptrdiff_t>(change.before);
    for (const SharedFrames& run : change.shared)
        std::move(first + static_cast<std::ptrdiff_t>(run.before),
                  first + static_cast<std::ptrdiff_t>(run.before + run.count),
                  part.begin() + static_cast<std::ptrdiff_t>(run.after));
    auto added = change.added.begin();
    forEachOther(isThere, [&](std::size_t index) { part[index] = std::move(*added++); });
    forEachOther(stays, [&](std::size_t index) {
        removed.push_back(std::move(*(first + static_cast<std::ptrdiff_t>(index))));
    });
    if (bound > oldBound)
        std::move_backward(oldEnd, frames.begin() + oldBound, frames.end());
    else if (bound < oldBound)
        std::move(oldEnd, frames.end(), first + static_cast<std::ptrdiff_t>(change.after));
    std::move(part.begin(), part.end(), first);
    if (bound < oldBound)
        frames.resize(bound);
    turnRound(change, removed);
}

std::size_t BytesOfBlock(std::size_t bytes) {
    constexpr std::size_t allowance = 2 * sizeof(void*); // a size, and what rounding it up adds
    return bytes == 0 ? 0 : bytes + allowance;
}

std::size_t BytesOfText(const std::string& text) {
    static const std::size_t withoutBlock = std::string().capacity();
    return text.capacity() > withoutBlock ? BytesOfBlock(text.capacity() + 1) : 0;
}

std::size_t BytesOfShared(const FrameChange& change) {
    return BytesOfBlock(change.shared.capacity() * sizeof(SharedFrames));
}

std::size_t BytesOfAdded(const FrameChange& change) {
    std::size_t bytes = BytesOfBlock(change.added.capacity() * sizeof(FrameRecord));
    for (const FrameRecord& frame : change.added) {
        bytes += bytesOfTexts(frame) + BytesOfBlock(frame.lines.capacity() * sizeof(LineRecord));
        for (const LineRecord& line : frame.lines)
            bytes += bytesOfTexts(line);
    }
    return bytes;
}

} // namespace qrtVistrelClasses4
