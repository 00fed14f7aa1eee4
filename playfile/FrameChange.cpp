#include "playfile/FrameChange.h"

#include "playfile/RecordHash.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
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

constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

/// Frames of a list by their content.
class FrameIndex {
public:
    /// Of the frames that are not `taken`.
    FrameIndex(FrameSpan frames, const std::vector<bool>& taken)
        : frames_(frames), hashes_(frames.size()), next_(frames.size(), kNowhere),
          heads_(std::bit_ceil(frames.size()), kNowhere) {
        for (std::size_t index = frames.size(); index-- > 0;)
            if (!taken[index]) {
                hashes_[index] = HashOf(frames[index]);
                next_[index] = std::exchange(headOf(hashes_[index]), index);
            }
    }

    /// The index of the first frame that is the same as `frame`, which is found only once.
    std::size_t take(const FrameRecord& frame) {
        const std::size_t hash = HashOf(frame);
        for (std::size_t* link = &headOf(hash); *link != kNowhere; link = &next_[*link])
            if (hashes_[*link] == hash && IsSameFrame(frames_[*link], frame))
                return std::exchange(*link, next_[*link]);
        return kNowhere;
    }

private:
    std::size_t& headOf(std::size_t hash) { return heads_[hash & (heads_.size() - 1)]; }

    FrameSpan frames_;
    std::vector<std::size_t> hashes_;
    std::vector<std::size_t> next_;  ///< The next frame whose hash has the same head.
    std::vector<std::size_t> heads_; ///< By the last bits of hashes.
};

/// Finds out where frames were before a change.
class FrameMatcher {
public:
    FrameMatcher(FrameSpan before, FrameSpan after)
        : before_(before), after_(after), isTaken_(before.size()), origins_(after.size(), kNowhere) {}

    /// Finds frames in the order that they had before. If that is lost, they may be where they were, at the
    /// first frame that is left, or, as often as `searches`, anywhere.
    void follow(int searches) {
        std::size_t first = 0; // that may be left
        std::size_t expected = 0;
        for (std::size_t index = 0; index < after_.size(); ++index, ++expected) {
            while (first < before_.size() && isTaken_[first])
                ++first;
            std::size_t found = expected;
            if (!isAt(found, index))
                found = first;
            if (!isAt(found, index) && searches-- > 0)
                while (found < before_.size() && !isAt(found, index))
                    ++found;
            if (isAt(found, index)) {
                match(index, found);
                expected = found;
            }
        }
    }
    /// Finds the others by their content.
    void lookUp() {
        std::optional<FrameIndex> others;
        for (std::size_t index = 0; index < after_.size(); ++index)
            if (origins_[index] == kNowhere) {
                if (!others)
                    others.emplace(before_, isTaken_);
                if (const std::size_t found = others->take(after_[index]); found != kNowhere)
                    match(index, found);
            }
    }

    std::vector<SharedFrames> shared() const {
        std::vector<SharedFrames> runs;
        for (std::size_t index = 0; index < origins_.size(); ++index) {
            if (origins_[index] == kNowhere)
                continue;
            if (!runs.empty() && origins_[index] == runs.back().before + runs.back().count &&
                index == runs.back().after + runs.back().count)
                ++runs.back().count;
            else
                runs.push_back({origins_[index], index, 1});
        }
        return {runs.begin(), runs.end()}; // in as much memory as it takes
    }

private:
    bool isAt(std::size_t place, std::size_t index) const {
        return place < before_.size() && !isTaken_[place] && IsSameFrame(before_[place], after_[index]);
    }
    void match(std::size_t index, std::size_t origin) {
        origins_[index] = origin;
        isTaken_[origin] = true;
    }

    FrameSpan before_, after_;
    std::vector<bool> isTaken_;        ///< Of the frames before.
    std::vector<std::size_t> origins_; ///< Of the frames after: an index of those before.
};

std::vector<SharedFrames> sharedBetween(FrameSpan before, FrameSpan after) {
    constexpr int searches = 2;                                               // one finds a block that moved
    if (before.empty() || after.empty() || before.size() + after.size() == 2) // one frame that has changed
        return {};
    FrameMatcher matcher(before, after);
    matcher.follow(searches);
    matcher.lookUp();
    return matcher.shared();
}

/// Number of frames that both lists end with. Goes forwards, although it looks at more frames so, because
/// that is four times as fast as going backwards in memory.
std::size_t countAtEnd(FrameSpan one, FrameSpan other) {
    const std::size_t size = std::min(one.size(), other.size());
    one = one.last(size);
    other = other.last(size);
    std::size_t sameFrom = 0;
    for (std::size_t index = 0; index < size; ++index)
        if (!IsSameFrame(one[index], other[index]))
            sameFrom = index + 1;
    return size - sameFrom;
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
    const FrameSpan oldRest(oldFirst, before.end());
    const FrameSpan newRest(newFirst, after.end());
    const std::size_t end = countAtEnd(oldRest, newRest);
    const FrameSpan oldPart = oldRest.first(oldRest.size() - end);
    const FrameSpan newPart = newRest.first(newRest.size() - end);
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
