#include <qrtVistrelClasses4/PlayTime.h>

#include "playfile/Effects.h"
#include "playfile/ShownLines.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr double kMillisecondsOfSecond = 1000;
constexpr double kFast = 2; ///< How much faster lines scroll in a frame with `FastScroll`.

TimeRange exactly(double seconds) { return {seconds, seconds, seconds}; }

TimeRange lasting(const Estimate& duration, double times = 1) {
    return {duration.low * times, duration.likely * times, duration.high * times};
}

/// The time to travel that many dots: the highest speed takes the shortest time.
TimeRange travelling(double dots, const Estimate& speed) {
    return {dots / speed.high, dots / speed.likely, dots / speed.low};
}

double notNegative(double value) { return std::max(value, 0.0); }

/// The part of a time that is beyond another one.
TimeRange beyond(const TimeRange& time, const TimeRange& other) {
    return {notNegative(time.shortest - other.shortest), notNegative(time.likely - other.likely),
            notNegative(time.longest - other.longest)};
}

/// Works out the times of one frame after the other.
class FrameTimer {
public:
    explicit FrameTimer(const PlayTimeCircumstances& circumstances)
        : circumstances_(circumstances), timing_(circumstances.timing),
          lines_(circumstances.signType, circumstances.commands) {
        if (circumstances.moment)
            lines_.setMoment(*circumstances.moment);
    }

    FrameTime timeOf(const FrameRecord& frame) {
        FrameTime time{.appearing = timeOf(PrefixMotion(frame.PrefixCode)),
                       .holding = exactly(holdSeconds(frame)),
                       .scrolling = {},
                       .disappearing = timeOf(SuffixMotion(frame.SuffixCode))};
        if (HasText(frame))
            time.scrolling = scrollingTime(frame, time.holding);
        return time;
    }

    std::vector<FontFault> takeFaults() { return lines_.takeFaults(); }

private:
    TimeRange timeOf(EffectMotion motion) const {
        switch (SpanOf(motion)) {
        case EffectSpan::across:
            return travelling(notNegative(circumstances_.sign.width), timing_.of(Timing::EffectSpeed));
        case EffectSpan::down:
            return travelling(notNegative(circumstances_.sign.height), timing_.of(Timing::EffectSpeed));
        case EffectSpan::fade:
            return lasting(timing_.of(Timing::FadeTime));
        case EffectSpan::twinkle:
            return lasting(timing_.of(Timing::TwinkleTime));
        default:
            return {};
        }
    }

    double holdSeconds(const FrameRecord& frame) const {
        if (circumstances_.aviFixedDelay && HasPicture(frame) && frame.AVIFrames > 1)
            return frame.AVIFrames * notNegative(circumstances_.aviDelay) / kMillisecondsOfSecond;
        return CountedDelay(frame);
    }

    TimeRange scrollingTime(const FrameRecord& frame, const TimeRange& holding) {
        std::int64_t longest = -1; // no line scrolls
        for (const LineRecord& line : frame.lines)
            if (line.Scrolling && !line.CurrentLineText.empty())
                longest = std::max(longest, lines_.widthOf(line));
        if (longest < 0)
            return {};
        const double dots = static_cast<double>(longest) + notNegative(circumstances_.sign.width);
        TimeRange time = beyond(travelling(dots, ScrollSpeedOf(frame, circumstances_)), holding);
        return time +=
               lasting(timing_.of(Timing::ScrollPauseUnit), notNegative(circumstances_.scrollPauseDelay));
    }

    const PlayTimeCircumstances& circumstances_;
    const SignTiming& timing_;
    ShownLines lines_;
};

} // namespace

TimeRange& TimeRange::operator+=(const TimeRange& other) {
    shortest += other.shortest;
    likely += other.likely;
    longest += other.longest;
    return *this;
}

double CountedDelay(const FrameRecord& frame) {
    return frame.DelayTime >= 0 && frame.DelayTime <= kLongestDelaySeconds ? frame.DelayTime : 0;
}

TimeRange FrameTime::total() const {
    TimeRange sum = appearing;
    sum += holding;
    sum += scrolling;
    return sum += disappearing;
}

PlayTimeCircumstances PlayTimeCircumstancesOf(const Preferences& preferences) {
    PlayTimeCircumstances circumstances;
    circumstances.sign = {preferences.DisplayWidth, preferences.DisplayHeight};
    circumstances.scrollingTextSpeed = preferences.ScrollingTextSpeed;
    circumstances.scrollPauseDelay = preferences.ScrollPauseDelay;
    circumstances.aviFixedDelay = preferences.AVIFixedDelay;
    circumstances.aviDelay = preferences.AVIDelay;
    return circumstances;
}

Estimate ScrollSpeedOf(const FrameRecord& frame, const PlayTimeCircumstances& circumstances) {
    const Estimate& speed = circumstances.timing.scrollSpeed(circumstances.scrollingTextSpeed);
    const double factor = IsFastScroll(frame) ? kFast : 1;
    return {speed.low * factor, speed.likely * factor, speed.high * factor};
}

PlayTime PlayTimeOf(const Playfile& playfile, const PlayTimeCircumstances& circumstances) {
    PlayTime time;
    time.frames.reserve(playfile.frames.upperBound());
    FrameTimer timer(circumstances);
    std::vector<TimeRange> totals; // of frames
    for (const FrameRecord& frame : playfile.frames) {
        const std::int32_t number = time.frames.upperBound() + 1;
        time.frames.resize(number);
        if (IsUsed(frame))
            time.frames.at(number) = timer.timeOf(frame);
        totals.push_back(time.frames.at(number).total());
    }
    time.playback = PlaybackOf(playfile);
    time.starts.reserve(time.playback.steps.size());
    for (const PlaybackStep step : time.playback.steps) {
        time.starts.push_back(time.total.likely);
        time.total += totals[static_cast<std::size_t>(step.frame) - 1];
    }
    time.faults = timer.takeFaults();
    return time;
}

} // namespace qrtVistrelClasses4
