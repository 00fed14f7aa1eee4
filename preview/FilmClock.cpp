#include "preview/FilmClock.h"

#include <qrtVistrelClasses4/DisplayRecord.h>

#include <cmath>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr double kMostSeconds = 1e12;
/// Times the steps of a transition, this is still a number of 63 bits.
constexpr Micros kLongestEffect = 10'000'000 * kMicrosOfSecond;
constexpr Micros kMinute = 60 * kMicrosOfSecond;

/// Of a speed, in thousandths of a dot a second.
constexpr double kThousandths = 1000;
constexpr double kHighestTravelSpeed = 1e7;
/// Far more than the longest text is wide.
constexpr std::int64_t kMostDots = 1'000'000'000;

Micros blinkTime(double seconds) {
    constexpr double usual = BlinkRate().shownSeconds;
    constexpr Micros shortest = 1000;
    return std::max(MicrosOf(seconds > 0 ? seconds : usual), shortest);
}

} // namespace

Micros MicrosOf(double seconds) {
    if (!(seconds > 0))
        return 0;
    return std::llround(std::min(seconds, kMostSeconds) * static_cast<double>(kMicrosOfSecond));
}

StepParts::StepParts(const FrameTime& time)
    : appearing(std::min(MicrosOf(time.appearing.likely), kLongestEffect)),
      showing(MicrosOf(time.holding.likely + time.scrolling.likely)),
      disappearing(std::min(MicrosOf(time.disappearing.likely), kLongestEffect)) {}

Blinking::Blinking(const BlinkRate& rate)
    : shown_(blinkTime(rate.shownSeconds)), clear_(blinkTime(rate.clearSeconds)) {}

Travel::Travel(std::int64_t dots, double dotsPerSecond)
    : dots_(std::min(dots, kMostDots)),
      speed_(dotsPerSecond > 0
                 ? std::max<std::int64_t>(
                       std::llround(std::min(dotsPerSecond, kHighestTravelSpeed) * kThousandths), 1)
                 : 1),
      end_(momentOf(dots_)) {}

Minutes::Minutes(std::chrono::local_seconds start) {
    using namespace std::chrono;
    const local_seconds first = local_days(0y / January / 1);
    const local_seconds last = local_days(10000y / January / 1);
    start_ = microseconds(std::clamp(start, first, last).time_since_epoch()).count();
}

Micros Minutes::sinceMinute(Micros moment) const { return ((start_ + moment) % kMinute + kMinute) % kMinute; }

std::chrono::local_seconds Minutes::at(Micros moment) const {
    return std::chrono::local_seconds(
        std::chrono::seconds((start_ + moment - sinceMinute(moment)) / kMicrosOfSecond));
}

Micros Minutes::next(Micros moment) const { return moment + kMinute - sinceMinute(moment); }

BlinkRate BlinkRateOf(const DisplayRecord& sign) {
    constexpr double milliseconds = 1000;
    const BlinkRate usual;
    return {sign.BlinkRateShow > 0 ? sign.BlinkRateShow / milliseconds : usual.shownSeconds,
            sign.BlinkRateClear > 0 ? sign.BlinkRateClear / milliseconds : usual.clearSeconds};
}

} // namespace qrtVistrelClasses4
