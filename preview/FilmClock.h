// The moments at which the dots of a film change, in whole microseconds.
#pragma once

#include <qrtVistrelClasses4/Film.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>

namespace qrtVistrelClasses4 {

/// Whole numbers, so that every system rounds in the same way.
using Micros = std::int64_t;
inline constexpr Micros kMicrosOfSecond = 1'000'000;
inline constexpr Micros kNever = std::numeric_limits<Micros>::max();

/// Anything that is not a number above 0 is 0, and no time is longer than 30,000 years.
Micros MicrosOf(double seconds);
inline double SecondsOf(Micros micros) {
    return static_cast<double>(micros) / static_cast<double>(kMicrosOfSecond);
}

/// The parts of a step, one after the other.
struct StepParts {
    explicit StepParts(const FrameTime& time);

    FilmPart partAt(Micros moment) const {
        if (moment < appearing)
            return FilmPart::appearing;
        return moment < appearing + showing ? FilmPart::showing : FilmPart::disappearing;
    }
    /// How long the frame has been shown when it is seen for the last time.
    Micros lastShown() const { return std::max<Micros>(showing - 1, 0); }

    Micros appearing;
    Micros showing;
    Micros disappearing;
};

/// Equal steps of something that takes a time. Their product must fit into 63 bits.
struct EqualSteps {
    Micros duration;
    std::int64_t count; ///< At least 1.

    /// How many steps have been taken at a moment from 0 to `duration`, which must be above 0.
    std::int64_t at(Micros moment) const { return moment * count / duration; }
    /// When the next step after a moment is taken.
    Micros next(Micros moment) const { return ((at(moment) + 1) * duration + count - 1) / count; }
};

/// Turns on and off for ever, beginning with on.
class Blinking {
public:
    explicit Blinking(const BlinkRate& rate);

    bool isOn(Micros moment) const { return moment % (shown_ + clear_) < shown_; }
    Micros next(Micros moment) const {
        const Micros start = moment - moment % (shown_ + clear_);
        return isOn(moment) ? start + shown_ : start + shown_ + clear_;
    }

private:
    Micros shown_;
    Micros clear_;
};

/// Something that moves `dots` dots at an even speed, and is then gone.
class Travel {
public:
    Travel(std::int64_t dots, double dotsPerSecond);

    std::int64_t at(Micros moment) const { return moment < end_ ? moment * speed_ / kUnit : dots_; }
    bool isOver(Micros moment) const { return at(moment) >= dots_; }
    /// When it is a dot further than at a moment at which it is not over.
    Micros next(Micros moment) const { return momentOf(at(moment) + 1); }

private:
    static constexpr std::int64_t kUnit = 1000 * kMicrosOfSecond; ///< Thousandths of a dot a second.
    Micros momentOf(std::int64_t dot) const { return (dot * kUnit + speed_ - 1) / speed_; }

    std::int64_t dots_;
    std::int64_t speed_; ///< In thousandths of a dot a second.
    Micros end_;
};

/// The minutes of the sign's clock.
class Minutes {
public:
    explicit Minutes(std::chrono::local_seconds start);

    /// The minute that begins at or before a moment of the film.
    std::chrono::local_seconds at(Micros moment) const;
    /// The moment at which the next minute begins.
    Micros next(Micros moment) const;

private:
    Micros sinceMinute(Micros moment) const;

    Micros start_; ///< Since 1970.
};

} // namespace qrtVistrelClasses4
