#include "tools/program/Duration.h"

#include "frame/Conversions.h"

#include <cmath>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

// All in tenths of a second, so that they are whole numbers.
constexpr double kSecond = 10;
constexpr double kMinute = 60 * kSecond;
constexpr double kHour = 60 * kMinute;
constexpr double kDay = 24 * kHour;

struct DurationUnit {
    double tenths;
    std::string_view name;
};

constexpr DurationUnit kDurationUnits[] = {{kDay, "d"}, {kHour, "h"}, {kMinute, "min"}};

} // namespace

std::string DurationText(double seconds) {
    const double tenths = seconds * kSecond;
    const double step = tenths < kHour ? 1 : tenths < kDay ? kSecond : kMinute;
    double left = std::round(tenths / step) * step;
    std::string text;
    for (const auto& [unit, name] : kDurationUnits)
        if (const double count = std::floor(left / unit); count > 0) {
            left -= count * unit;
            text.append(NumberToText(count)).append(" ").append(name) += " ";
        }
    if (text.empty() || left > 0)
        return text + NumberToText(left / kSecond) + " s";
    text.pop_back(); // the blank
    return text;
}

} // namespace qrtVistrelClasses4
