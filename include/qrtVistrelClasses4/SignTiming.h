// How fast signs are. Signs do not report it, so these are assumptions, which a file can replace.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// A value that is not known exactly.
struct Estimate {
    double low = 0;
    double likely = 0;
    double high = 0;

    bool operator==(const Estimate&) const = default;
};

/// What is assumed of a sign. `ScrollSpeed0` is the speed for 0 in `ScrollingTextSpeed`; those for 1 to 9
/// follow it.
enum class Timing : std::uint8_t {
    ScrollSpeed0,
    ScrollSpeed9 = 9,
    ScrollPauseUnit,
    EffectSpeed,
    FadeTime,
    TwinkleTime,
    DelayLimitUnit,
};

enum class TimingUnit : std::uint8_t { dotsPerSecond, seconds };

struct TimingRow {
    std::string_view key; ///< In "SignTiming.ini".
    TimingUnit unit;
    std::string_view meaning;
    Estimate assumed;
};

/// The assumptions, in the order of `Timing`.
inline constexpr std::array kTimingRows{
    // clang-format off
    TimingRow{"ScrollSpeed0", TimingUnit::dotsPerSecond, "Speed of scrolling lines if ScrollingTextSpeed is 0 or less", {10, 20, 40}},
    TimingRow{"ScrollSpeed1", TimingUnit::dotsPerSecond, "The same for 1", {15, 30, 60}},
    TimingRow{"ScrollSpeed2", TimingUnit::dotsPerSecond, "The same for 2", {20, 40, 80}},
    TimingRow{"ScrollSpeed3", TimingUnit::dotsPerSecond, "The same for 3", {25, 50, 100}},
    TimingRow{"ScrollSpeed4", TimingUnit::dotsPerSecond, "The same for 4", {30, 60, 120}},
    TimingRow{"ScrollSpeed5", TimingUnit::dotsPerSecond, "The same for 5", {40, 80, 160}},
    TimingRow{"ScrollSpeed6", TimingUnit::dotsPerSecond, "The same for 6", {50, 100, 200}},
    TimingRow{"ScrollSpeed7", TimingUnit::dotsPerSecond, "The same for 7", {60, 120, 240}},
    TimingRow{"ScrollSpeed8", TimingUnit::dotsPerSecond, "The same for 8", {70, 140, 280}},
    TimingRow{"ScrollSpeed9", TimingUnit::dotsPerSecond, "The same for 9 or more", {80, 160, 320}},
    TimingRow{"ScrollPauseUnit", TimingUnit::seconds, "Duration of 1 in ScrollPauseDelay", {0.1, 0.2, 0.5}},
    TimingRow{"EffectSpeed", TimingUnit::dotsPerSecond, "Speed of effects that move over the sign", {40, 80, 160}},
    TimingRow{"FadeTime", TimingUnit::seconds, "Duration of a fade or pulse", {0.5, 1, 2}},
    TimingRow{"TwinkleTime", TimingUnit::seconds, "Duration of a twinkle", {0.5, 1, 2}},
    TimingRow{"DelayLimitUnit", TimingUnit::seconds, "Duration of 1 in DelayMinimum, DelayMaximum and DelayStep", {0.001, 0.001, 0.001}},
    // clang-format on
};

/// The speeds and durations of a sign; by default those that are assumed.
class SignTiming {
public:
    SignTiming() {
        for (std::size_t row = 0; row < kTimingRows.size(); ++row)
            values_[row] = kTimingRows[row].assumed;
    }

    const Estimate& of(Timing timing) const { return values_[static_cast<std::size_t>(timing)]; }
    Estimate& of(Timing timing) { return values_[static_cast<std::size_t>(timing)]; }
    /// Speed of scrolling lines for a value of `ScrollingTextSpeed`.
    const Estimate& scrollSpeed(std::int16_t scrollingTextSpeed) const;

    bool operator==(const SignTiming&) const = default;

private:
    std::array<Estimate, kTimingRows.size()> values_;
};

/// A value in the file that is not used.
struct BadTiming {
    std::string_view key;
    std::string text;       ///< As it is in the file, cut to 254 characters.
    std::string_view fault; ///< What is wrong with it: "is not one number or three in rising order".
};

/// What came of reading the file.
struct [[nodiscard]] SignTimingOutcome {
    SignTiming timing; ///< Values that the file lacks, and bad ones, are those that are assumed.
    std::string path;
    std::vector<BadTiming> bad;

    /// One error that names all bad values. No value if there are none.
    std::optional<RuntimeError> error() const;
};

/// Least and greatest speed in the file, in dots a second.
inline constexpr double kLowestSpeed = 0.1;
inline constexpr double kHighestSpeed = 1e6;
/// Greatest duration in the file, in seconds. The least is 0.
inline constexpr double kLongestDuration = 1e6;

/// Full name of "SignTiming.ini" in the application data folder, or of the one that is read in its place.
QRT_PUBLIC std::string SignTimingPath();

/// Reads the section "Timing" of the file. A value is "low, likely, high", or one number for all three. A
/// missing file is the same as an empty one.
QRT_PUBLIC SignTimingOutcome LoadSignTiming();

} // namespace qrtVistrelClasses4
