// What differs between two lists of frames, in a form that can be made and taken back.
#pragma once

#include <qrtVistrelClasses4/FrameRecord.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

using FrameList = OneBasedArray<FrameRecord>;

/// Successive frames that are in both lists. Indexes count from the first frame that differs.
struct SharedFrames {
    std::size_t before = 0; ///< Index of the first one in the list before the change.
    std::size_t after = 0;  ///< And in the list after it.
    std::size_t count = 0;

    bool operator==(const SharedFrames&) const = default;
};

/// A change of a list: a part of it is replaced by another. Frames before and after that part stay.
struct FrameChange {
    std::size_t first = 0;            ///< Index (from 0) of the part.
    std::size_t before = 0;           ///< Number of its frames before the change.
    std::size_t after = 0;            ///< And after it.
    std::vector<SharedFrames> shared; ///< Frames that stay, but may have moved, by their new places.
    std::vector<FrameRecord> added;   ///< The other frames that the part has after the change, in order.

    /// Whether all shared frames stay in their places.
    bool isInPlace() const;
};

/// Whether two frames would be saved alike: unlike `==`, it tells delays of 0 and -0 apart.
bool IsSameFrame(const FrameRecord& one, const FrameRecord& other);

/// How one list becomes another; nothing if both are the same. Each frame that stays in order is compared
/// once as a whole. Only frames that were changed, or moved one by one, are also looked up by their content.
std::optional<FrameChange> ChangeBetween(const FrameList& before, const FrameList& after);

/// Makes a change of the list that `change` is about, and turns it into the one that takes it back. Frames
/// are moved, not copied. If an exception is thrown, nothing has changed.
void MakeChange(FrameList& frames, FrameChange& change);

/// Bytes that a change takes besides the value itself, `added` and its frames not counted.
std::size_t BytesOfShared(const FrameChange& change);
/// Bytes that `added` takes.
std::size_t BytesOfAdded(const FrameChange& change);
/// Bytes that a text takes besides the value itself.
std::size_t BytesOfText(const std::string& text);
/// Bytes that a block of memory takes that has room for `bytes`; 0 for none.
std::size_t BytesOfBlock(std::size_t bytes);

} // namespace qrtVistrelClasses4
