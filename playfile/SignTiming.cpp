#include <qrtVistrelClasses4/SignTiming.h>

#include "frame/Conversions.h"
#include "frame/ErrorTrap.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/LibraryFiles.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kSection = "Timing";
constexpr std::size_t kBufferOfValue = 255;
constexpr std::int16_t kHighestScrollSpeed = 9;

constexpr std::string_view kNotInOrder = "is not one number, or three in rising order";
constexpr std::string_view kNoSpeed = "is not a speed from 0.1 to 1000000 dots a second";
constexpr std::string_view kNoDuration = "is not a time from 0 to 1000000 seconds";

/// Nothing for a text that is not a number. Infinity for one that is too large, and so beyond all limits.
std::optional<double> numberIn(std::string_view text) {
    try {
        return ParseNumber(text);
    } catch (const RuntimeError&) {
        return std::numeric_limits<double>::infinity();
    }
}

/// The numbers between commas. Nothing if one of them is none.
std::optional<std::vector<double>> numbersIn(std::string_view text) {
    std::vector<double> numbers;
    for (bool isLast = false; !isLast;) {
        const std::size_t comma = text.find(',');
        const std::optional<double> number = numberIn(text.substr(0, comma));
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
        isLast = comma == text.npos;
        text.remove_prefix(isLast ? 0 : comma + 1);
    }
    return numbers;
}

std::optional<Estimate> estimateOf(std::string_view text) {
    const std::optional<std::vector<double>> numbers = numbersIn(text);
    if (!numbers || !std::ranges::is_sorted(*numbers))
        return std::nullopt;
    if (numbers->size() == 1)
        return Estimate{numbers->front(), numbers->front(), numbers->front()};
    return numbers->size() == 3 ? std::optional(Estimate{(*numbers)[0], (*numbers)[1], (*numbers)[2]})
                                : std::nullopt;
}

/// What is wrong with a value for a row; empty if nothing is.
std::string_view faultOf(const TimingRow& row, const std::optional<Estimate>& value) {
    if (!value)
        return kNotInOrder;
    if (row.unit == TimingUnit::dotsPerSecond)
        return value->low < kLowestSpeed || value->high > kHighestSpeed ? kNoSpeed : "";
    return value->low < 0 || value->high > kLongestDuration ? kNoDuration : "";
}

} // namespace

const Estimate& SignTiming::scrollSpeed(std::int16_t scrollingTextSpeed) const {
    return values_[static_cast<std::size_t>(
        std::clamp<std::int16_t>(scrollingTextSpeed, 0, kHighestScrollSpeed))];
}

std::optional<RuntimeError> SignTimingOutcome::error() const {
    if (bad.empty())
        return std::nullopt;
    std::string text = path + ":";
    for (const BadTiming& value : bad)
        text.append(" ").append(value.key).append(" = ").append(value.text).append(" ").append(value.fault) +=
            ";";
    text.back() = '.';
    return RuntimeError(static_cast<int>(ErrorNumber::typeMismatch), std::move(text));
}

std::string SignTimingPath() try {
    return PlaceToRead(GetAppFolder(), {.name = "SignTiming.ini", .use = FileUse::onlyRead});
} catch (...) {
    RethrowAsRuntimeError();
}

SignTimingOutcome LoadSignTiming() try {
    SignTimingOutcome outcome{.timing = {}, .path = SignTimingPath(), .bad = {}};
    const auto file = platform().openProfile(outcome.path);
    for (std::size_t number = 0; number < kTimingRows.size(); ++number) {
        const TimingRow& row = kTimingRows[number];
        std::string text = file->read(kSection, row.key, "", kBufferOfValue);
        if (text.empty())
            continue;
        const std::optional<Estimate> value = estimateOf(text);
        if (const std::string_view fault = faultOf(row, value); !fault.empty())
            outcome.bad.push_back({row.key, std::move(text), fault});
        else
            outcome.timing.of(static_cast<Timing>(number)) = *value;
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
