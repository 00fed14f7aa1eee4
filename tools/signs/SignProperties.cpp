#include "tools/signs/SignProperties.h"

#include "frame/Conversions.h"
#include "platform/LetterCase.h"
#include "tools/program/NameDistance.h"
#include "tools/program/PropertyValues.h"

#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;
using Signs = DisplayDatabaseClass;

template <class Type>
struct SignProperty {
    using Value = Type;
    using Argument = std::conditional_t<std::is_class_v<Type>, const Type&, Type>;

    std::string_view name;
    Value (Signs::*getter)();
    void (Signs::*setter)(Argument);

    Value get(Signs& signs) const { return (signs.*getter)(); }
    void set(Signs& signs, Argument value) const { (signs.*setter)(value); }
};
using SignText = SignProperty<std::string>;
using SignNumber = SignProperty<std::int16_t>;
using SignLong = SignProperty<std::int32_t>;
using SignFlag = SignProperty<bool>;

/// A number that the library hands out as text.
struct SignType {
    using Value = std::int16_t;
    std::string_view name = "DisplayType";
    static Value get(Signs& signs) { return TextToInt16(signs.DisplayType()); }
    static void set(Signs& signs, Value value) { signs.DisplayType(NumberToText(std::int32_t{value})); }
};

constexpr std::tuple kSignProperties{
    SignText{"DisplayName", &Signs::DisplayName, &Signs::DisplayName},
    SignType{},
    SignNumber{"DisplayHeight", &Signs::DisplayHeight, &Signs::DisplayHeight},
    SignNumber{"DisplayWidth", &Signs::DisplayWidth, &Signs::DisplayWidth},
    SignLong{"FrameSize", &Signs::FrameSize, &Signs::FrameSize},
    SignText{"AppDesc", &Signs::AppDesc, &Signs::AppDesc},
    SignFlag{"IsDisplayColor", &Signs::IsDisplayColor, &Signs::IsDisplayColor},
    SignText{"DefaultColor", &Signs::DefaultColor, &Signs::DefaultColor},
    SignText{"ColorsSupported", &Signs::ColorsSupported, &Signs::ColorsSupported},
    SignNumber{"ConnectionMethod", &Signs::ConnectionMethod, &Signs::ConnectionMethod},
    SignText{"CommPort", &Signs::CommPort, &Signs::CommPort},
    SignText{"BaudRate", &Signs::BaudRate, &Signs::BaudRate},
    SignText{"PhoneNumber", &Signs::PhoneNumber, &Signs::PhoneNumber},
    SignText{"IPAddress", &Signs::IPAddress, &Signs::IPAddress},
    SignText{"DisplayIDs", &Signs::DisplayIDs, &Signs::DisplayIDs},
    SignFlag{"SwitchOperated", &Signs::SwitchOperated, &Signs::SwitchOperated},
    SignNumber{"Switch1", &Signs::Switch1, &Signs::Switch1},
    SignNumber{"Switch2", &Signs::Switch2, &Signs::Switch2},
    SignFlag{"DaylightSavingsTime", &Signs::DaylightSavingsTime, &Signs::DaylightSavingsTime},
    SignNumber{"TimeZoneAdjustment", &Signs::TimeZoneAdjustment, &Signs::TimeZoneAdjustment},
    SignLong{"ScrollPauseDelay", &Signs::ScrollPauseDelay, &Signs::ScrollPauseDelay},
    SignNumber{"ScrollingTextSpeed", &Signs::ScrollingTextSpeed, &Signs::ScrollingTextSpeed},
    SignFlag{"ResetOnGetParameters", &Signs::ResetOnGetParameters, &Signs::ResetOnGetParameters},
    SignFlag{"TempProbeInstalled", &Signs::TempProbeInstalled, &Signs::TempProbeInstalled},
    SignNumber{"TempProbeAdjust", &Signs::TempProbeAdjust, &Signs::TempProbeAdjust},
    SignNumber{"BlinkRateShow", &Signs::BlinkRateShow, &Signs::BlinkRateShow},
    SignNumber{"BlinkRateClear", &Signs::BlinkRateClear, &Signs::BlinkRateClear},
    SignText{"BlinkBehavior", &Signs::BlinkBehavior, &Signs::BlinkBehavior},
    SignText{"BlinkTimes", &Signs::BlinkTimes, &Signs::BlinkTimes},
    SignNumber{"BrightnessLevel", &Signs::BrightnessLevel, &Signs::BrightnessLevel},
    SignFlag{"LightSensorInstalled", &Signs::LightSensorInstalled, &Signs::LightSensorInstalled},
    SignNumber{"LightSensorMinimum", &Signs::LightSensorMinimum, &Signs::LightSensorMinimum},
    SignNumber{"LightSensorMaximum", &Signs::LightSensorMaximum, &Signs::LightSensorMaximum},
    SignNumber{"BrightnessScheduleDefaultBrightness", &Signs::BrightnessScheduleDefaultBrightness,
               &Signs::BrightnessScheduleDefaultBrightness},
};

/// Of the schedule under the cursor.
constexpr std::tuple kScheduleProperties{
    SignText{"StartTime", &Signs::BrightnessScheduleXStartTime, &Signs::BrightnessScheduleXStartTime},
    SignText{"StopTime", &Signs::BrightnessScheduleXStopTime, &Signs::BrightnessScheduleXStopTime},
    SignNumber{"BrightnessLevel", &Signs::BrightnessScheduleXBrightnessLevel,
               &Signs::BrightnessScheduleXBrightnessLevel},
};

template <class Properties>
ordered_json readAll(Signs& signs, const Properties& properties) {
    ordered_json object = ordered_json::object();
    std::apply(
        [&](const auto&... property) {
            ((object[std::string(property.name)] = JsonOf(property.get(signs))), ...);
        },
        properties);
    return object;
}

/// Hands every property to `action`, with its full name. The cursor is on its schedule then.
template <class Action>
void forEachProperty(Signs& signs, const Action& action) {
    const auto withPrefix = [&](const std::string& prefix, const auto& properties) {
        std::apply(
            [&](const auto&... property) { (action(prefix + std::string(property.name), property), ...); },
            properties);
    };
    withPrefix("", kSignProperties);
    for (std::int16_t number = 1; number <= kSchedulesOfADisplay; ++number) {
        signs.CurrentBrightnessScheduleNumber(number);
        withPrefix("Schedule" + std::to_string(number) + ".", kScheduleProperties);
    }
}

std::string nearestProperty(Signs& signs, std::string_view name) {
    std::string nearest;
    std::size_t shortest = std::numeric_limits<std::size_t>::max();
    forEachProperty(signs, [&](const std::string& candidate, const auto&) {
        if (const std::size_t distance = NameDistance(candidate, name); distance < shortest) {
            shortest = distance;
            nearest = candidate;
        }
    });
    return nearest;
}

} // namespace

ordered_json SignJson(Signs& signs, std::int16_t number) {
    signs.CurrentDisplayNumber(number);
    ordered_json sign = readAll(signs, kSignProperties);
    ordered_json& schedules = sign["Schedules"] = ordered_json::array();
    for (std::int16_t schedule = 1; schedule <= kSchedulesOfADisplay; ++schedule) {
        signs.CurrentBrightnessScheduleNumber(schedule);
        schedules.push_back(readAll(signs, kScheduleProperties));
    }
    return sign;
}

bool SetSignProperty(Signs& signs, std::string_view name, std::string_view typed, ErrorLines& errors) {
    std::optional<bool> done; // none as long as the property is not found
    forEachProperty(signs, [&](const std::string& fullName, const auto& property) {
        if (!EqualIgnoringAsciiCase(fullName, name))
            return;
        errors.about(fullName);
        const auto value =
            ValueFromTyped<typename std::remove_cvref_t<decltype(property)>::Value>(typed, errors);
        if (value)
            property.set(signs, *value);
        done = value.has_value();
    });
    if (!done) {
        errors.about(name);
        errors.add("no such property; the nearest name is " + nearestProperty(signs, name));
    }
    return done.value_or(false);
}

std::vector<std::string> PropertiesHolding(Signs& signs, char character) {
    std::vector<std::string> names;
    forEachProperty(signs, [&](const std::string& fullName, const auto& property) {
        const ordered_json value = property.get(signs);
        if (value.is_string() && value.get_ref<const std::string&>().find(character) != std::string::npos)
            names.push_back(fullName);
    });
    return names;
}

} // namespace qrtVistrelClasses4
