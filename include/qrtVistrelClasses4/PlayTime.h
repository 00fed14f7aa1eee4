// How long a sign takes to show a playfile.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FontFault.h>
#include <qrtVistrelClasses4/OneBasedArray.h>
#include <qrtVistrelClasses4/Playback.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/SignTiming.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Seconds that something takes.
struct TimeRange {
    double shortest = 0;
    double likely = 0;
    double longest = 0;

    TimeRange& operator+=(const TimeRange& other);
    bool operator==(const TimeRange&) const = default;
};

/// The parts of the time that a frame takes, one after the other.
struct FrameTime {
    TimeRange appearing; ///< The appear effect.
    TimeRange holding;   ///< `DelayTime`, or the pictures of an animation that have a fixed delay.
    /// What scrolling lines add: the time until the longest one has passed, as far as it is longer than
    /// `holding`, and the pause after it.
    TimeRange scrolling;
    TimeRange disappearing; ///< The disappear effect.

    TimeRange total() const;
    bool operator==(const FrameTime&) const = default;
};

/// A longer delay of a frame is taken for damage, and counts as 0.
inline constexpr double kLongestDelaySeconds = 1e9;
/// The seconds of a frame's `DelayTime`. One that is negative, not a number or too long counts as 0.
QRT_PUBLIC double CountedDelay(const FrameRecord& frame);

/// What the time depends on besides the playfile.
struct PlayTimeCircumstances {
    DotSize sign;              ///< Numbers below 0 count as 0.
    std::int16_t signType = 0; ///< Font 5 depends on it.
    std::int16_t scrollingTextSpeed = 0;
    std::int32_t scrollPauseDelay = 0; ///< Numbers below 0 count as 0.
    bool aviFixedDelay = false;
    std::int16_t aviDelay = 0; ///< Milliseconds; numbers below 0 count as 0.
    SignTiming timing;
    /// Those whose previews replace their keys in texts.
    CommandTable commands = BuiltInCommands();
    /// What clocks and dates in texts show, on which widths depend. Nothing for now.
    std::optional<std::chrono::local_seconds> moment = {};
};

/// The size and the speeds that preferences have, and defaults for all else.
QRT_PUBLIC PlayTimeCircumstances PlayTimeCircumstancesOf(const Preferences& preferences);

/// The speed of scrolling lines of a frame, in dots a second.
QRT_PUBLIC Estimate ScrollSpeedOf(const FrameRecord& frame, const PlayTimeCircumstances& circumstances);

struct PlayTime {
    TimeRange total; ///< Of all steps of `playback`.
    Playback playback;
    OneBasedArray<FrameTime> frames; ///< By number of the frame. Blank frames take no time.
    /// For each step, the seconds from the start of the playback until it likely begins.
    std::vector<double> starts;
    /// Fonts of scrolling lines that could not be loaded. The widths of these lines are those in font 0 or,
    /// if that is missing too, 0.
    std::vector<FontFault> faults;

    /// The parts of a step; `step` is an index of `playback.steps`.
    const FrameTime& timesOf(std::size_t step) const { return frames.at(playback.steps.at(step).frame); }
};

/// The time of one pass.
///
/// - A frame is held for its `CountedDelay`. With `aviFixedDelay`, a frame with a picture and with
///   `AVIFrames` above 1, an animation, is held for `AVIFrames` times `aviDelay` instead.
/// - A scrolling line that has a text travels its own width and that of the sign, twice as fast if
///   `FastScroll` is 1. All lines of a frame start at the same time, and `Merge` changes nothing. After the
///   longest line there is one pause of `scrollPauseDelay`.
/// - An effect that moves over the sign travels its width or its height. Fades and twinkles take a fixed
///   time. Overlays, jumps, PhotoRealistic, loops, and codes without a name take no time.
QRT_PUBLIC PlayTime PlayTimeOf(const Playfile& playfile, const PlayTimeCircumstances& circumstances);

} // namespace qrtVistrelClasses4
