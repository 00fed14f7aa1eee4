// Delays, counts and flags.
#include "frame/Conversions.h"
#include "platform/FileNames.h"
#include "playfile/Effects.h"
#include "validation/Rules.h"
#include <qrtVistrelClasses4/PlayTime.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

/// Delays are stored with 15 digits, and steps such as 0.1 are no binary numbers.
constexpr double kNegligible = 1e-9;

bool isAbout(double one, double other) {
    return std::abs(one - other) <= kNegligible * std::max({1.0, std::abs(one), std::abs(other)});
}

std::string secondsText(double seconds) {
    return NumberToText(seconds) + (seconds == 1 ? " second" : " seconds");
}

/// The delay nearest to `seconds` that the editor offers.
double nearestOffered(const DelayLimits& limits, double seconds) {
    const double within = std::clamp(seconds, limits.minimum, limits.maximum);
    if (!(limits.step > 0))
        return within;
    const double most = std::floor((limits.maximum - limits.minimum) / limits.step + kNegligible);
    const double steps = std::round((within - limits.minimum) / limits.step);
    return limits.minimum + std::min(steps, most) * limits.step;
}

/// As many digits as files keep, so that the fix of 0.3 seconds is not 0.30000000000000004.
double asStored(double seconds) {
    return std::isfinite(seconds) ? TextToDouble(NumberToText(seconds)) : seconds;
}

/// Limits in a unit that is too long for numbers are infinite, and say nothing.
bool areKnown(const std::optional<DelayLimits>& limits) {
    return limits && std::isfinite(limits->minimum) && std::isfinite(limits->maximum) &&
           std::isfinite(limits->step) && limits->minimum <= limits->maximum;
}

/// Whether the next used frame is drawn over this one.
bool isDrawnOver(const OneBasedArray<FrameRecord>& frames, std::int32_t number) {
    do
        ++number;
    while (frames.contains(number) && !IsUsed(frames.at(number)));
    return frames.contains(number) && IsDrawnOver(frames.at(number));
}

/// Whether the frame is seen although it stays for no time: something passes over the sign, or a frame that
/// is drawn over it follows at once.
bool isSeenWithoutDelay(const OneBasedArray<FrameRecord>& frames, std::int32_t number) {
    const FrameRecord& frame = frames.at(number);
    const bool mayBeAnimation = HasPicture(frame) && !HasEnding(frame.PicturefileName, "bmp");
    const bool scrolls =
        HasText(frame) && std::any_of(frame.lines.begin(), frame.lines.end(), [](const LineRecord& line) {
            return line.Scrolling && !line.CurrentLineText.empty();
        });
    return KindOf(frame) == NEW_FRAME_TYPES::FRAME_CMD ||
           SpanOf(PrefixMotion(frame.PrefixCode)) != EffectSpan::none ||
           SpanOf(SuffixMotion(frame.SuffixCode)) != EffectSpan::none || mayBeAnimation || scrolls ||
           isDrawnOver(frames, number);
}

/// These findings have no fix: the unit of the limits is an assumption.
void checkLimits(const DelayLimits& limits, const FrameRecord& frame, const Place& place,
                 Findings& findings) {
    const double delay = frame.DelayTime;
    const double nearest = asStored(nearestOffered(limits, delay));
    const std::string is = "The frame is shown for " + secondsText(delay);
    const bool isTooShort = delay < limits.minimum && !isAbout(delay, limits.minimum);
    const bool isTooLong = delay > limits.maximum && !isAbout(delay, limits.maximum);
    if (isTooShort || isTooLong)
        findings.add("delay-outside-limits", place,
                     is + ", and the settings allow " + NumberToText(limits.minimum) + " to " +
                         secondsText(limits.maximum) + ".");
    else if (limits.step > 0 && !isAbout(delay, nearest))
        findings.add("delay-off-step", place,
                     is + ", and the settings offer steps of " + secondsText(limits.step) +
                         "; the nearest is " + NumberToText(nearest) + ".");
}

void checkDelay(const OneBasedArray<FrameRecord>& frames, std::int32_t number,
                const ValidationCircumstances& circumstances, Findings& findings) {
    const FrameRecord& frame = frames.at(number);
    const Place place{number, 0, kPropertyOf<&FrameRecord::DelayTime>};
    const auto& limits = circumstances.delayLimits;
    if (!std::isfinite(frame.DelayTime))
        findings.add("delay-not-a-number", place, "The delay is infinite or not a number.");
    else if (frame.DelayTime < 0)
        findings.add("delay-negative", place,
                     "The delay is " + secondsText(frame.DelayTime) + ", less than none.");
    else if (frame.DelayTime == 0 && !isSeenWithoutDelay(frames, number))
        findings.add("delay-zero", place, "The frame is shown for 0 seconds, and nothing on it moves.");
    else if (frame.DelayTime > kLongestDelaySeconds)
        findings.add("delay-too-long", place,
                     "The delay is " + secondsText(frame.DelayTime) + ", and counts as 0 beyond " +
                         secondsText(kLongestDelaySeconds) + '.');
    else if (frame.DelayTime > 0 && areKnown(limits))
        checkLimits(*limits, frame, place, findings);
}

template <auto member>
void checkCount(const FrameRecord& frame, std::int32_t number, Findings& findings) {
    if (frame.*member >= 0)
        return;
    const std::string_view property = kPropertyOf<member>;
    constexpr bool isOfFile = std::is_same_v<MemberClass<member>, MemberClass<&FrameRecord::AVIFrames>>;
    findings.add("number-negative", {number, 0, property},
                 std::string(property) + " is " + std::to_string(frame.*member) + ", and counts something.",
                 isOfFile ? std::nullopt : std::optional(0.0));
}

template <auto flag>
void checkFlag(const FrameRecord& frame, std::int32_t number, std::optional<double> fix, Findings& findings) {
    if (frame.*flag == 0 || frame.*flag == 1)
        return;
    const std::string_view property = kPropertyOf<flag>;
    findings.add("flag-not-0-or-1", {number, 0, property},
                 std::string(property) + " is a flag, and is " + std::to_string(frame.*flag) +
                     " instead of 0 or 1.",
                 fix);
}

void checkLineLimit(const FrameRecord& frame, std::int32_t number, Findings& findings) {
    const Place place{number, 0, kPropertyOf<&FrameRecord::FixedNumberOfLines>};
    const std::int32_t lines = frame.lines.upperBound();
    const std::int32_t limit = frame.FixedNumberOfLines;
    if (limit > std::numeric_limits<std::int16_t>::max())
        findings.add("line-limit-too-large", place,
                     "The frame is to keep " + std::to_string(limit) + " lines, and programs read at most " +
                         std::to_string(std::numeric_limits<std::int16_t>::max()) + ".",
                     lines);
    else if (limit > 0 && limit != lines)
        findings.add("lines-not-kept", place,
                     "The frame is to keep " + CountText(limit, "line", "lines") + ", and has " +
                         std::to_string(lines) + ".",
                     lines);
}

} // namespace

DelayLimits DelayLimitsOf(const Preferences& preferences, double secondsOfUnit) {
    return {asStored(preferences.DelayMinimum * secondsOfUnit),
            asStored(preferences.DelayMaximum * secondsOfUnit),
            asStored(preferences.DelayStep * secondsOfUnit)};
}

void CheckNumbers(const Playfile& playfile, const ValidationCircumstances& circumstances,
                  Findings& findings) {
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        if (!IsUsed(frame))
            continue;
        checkDelay(playfile.frames, number, circumstances, findings);
        checkCount<&FrameRecord::TotalDisplayFramesUsedForThisFrame>(frame, number, findings);
        checkCount<&FrameRecord::AVIFrames>(frame, number, findings);
        checkCount<&FrameRecord::FixedNumberOfLines>(frame, number, findings);
        checkFlag<&FrameRecord::SendCommandFileAsIs>(frame, number, std::nullopt, findings);
        checkFlag<&FrameRecord::OverlayFrame>(frame, number, 1, findings);
        checkFlag<&FrameRecord::FastScroll>(frame, number, std::nullopt, findings);
        checkLineLimit(frame, number, findings);
    }
}

} // namespace qrtVistrelClasses4
