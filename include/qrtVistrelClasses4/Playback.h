// The order in which a sign shows the frames of a playfile.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Playfile.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Frames that are shown several times. The appear effect of the first one starts the loop, and the disappear
/// effect of the last one ends it; both may be the same frame.
struct Loop {
    std::int32_t firstFrame = 0;
    std::int32_t lastFrame = 0; ///< 0 if no frame ends the loop; its frames are then shown once.
    std::int32_t rounds = 1;    ///< How many times the frames are shown, 1 to 99.
    /// Index of the innermost loop around this one in `LoopsOfPlayfile::loops`. Loops that no frame ends are
    /// around nothing.
    std::optional<std::size_t> parent;
    std::int32_t depth = 1; ///< 1 for a loop that is in no other.

    bool isClosed() const { return lastFrame != 0; }
    bool operator==(const Loop&) const = default;
};

struct LoopsOfPlayfile {
    std::vector<Loop> loops; ///< By first frame.
    /// Frames whose disappear effect ends a loop where none has been started. These effects are ignored.
    std::vector<std::int32_t> endsWithoutStart;

    bool operator==(const LoopsOfPlayfile&) const = default;
};

/// The loops of a playfile. An end belongs to the last start before it that has no end yet. Effects of blank
/// frames start and end no loops.
QRT_PUBLIC LoopsOfPlayfile LoopsOf(const Playfile& playfile);

/// A frame that is shown once.
struct PlaybackStep {
    std::int32_t frame = 0; ///< Number of the frame, from 1.
    std::int32_t round = 1; ///< Which pass through the innermost loop around the frame it is, from 1.

    bool operator==(const PlaybackStep&) const = default;
};

/// The most steps of a playback. Loops in each other can make more steps than any memory could hold.
inline constexpr std::size_t kMostPlaybackSteps = 1'000'000;

/// One pass through a playfile.
struct Playback {
    std::vector<PlaybackStep> steps;
    bool isCut =
        false; ///< True if the pass has more steps than `kMostPlaybackSteps`; the others are missing.
};

/// The pass through all frames but blank ones, loops run through.
QRT_PUBLIC Playback PlaybackOf(const Playfile& playfile);

} // namespace qrtVistrelClasses4
