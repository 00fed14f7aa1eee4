// What is known about one sign ("display"), and the tables of its members.
#pragma once

#include <qrtVistrelClasses4/DisplayNames.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/MemberTable.h>
#include <qrtVistrelClasses4/OneBasedArray.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace QRT_PUBLIC qrtVistrelClasses4 {

inline constexpr std::int16_t kSchedulesOfADisplay = 4;

// Values of `ConnectionMethod`.
inline constexpr std::int16_t kDirectConnection = 1; ///< Serial.
inline constexpr std::int16_t kNetworkConnection = 2;
inline constexpr std::int16_t kModemConnection = 3;

/// A part of the day with its own brightness. Times are kept as the application gives them.
struct BrightnessSchedule {
    std::string StartTime;
    std::string StopTime;
    std::int16_t BrightnessLevel = 0;

    bool operator==(const BrightnessSchedule&) const = default;
};

/// One sign. Texts are 8-bit characters of the ANSI code page. The application and the sign decide on the
/// units of delays, speeds, rates, sizes of frames and adjustments of the clock, and on the form of colours,
/// addresses and blink texts.
struct DisplayRecord {
    std::string DisplayName;
    std::int16_t DisplayType = 0;   ///< Number of the sign type; `SignTypeName` gives its name.
    std::int16_t DisplayHeight = 0; ///< LED pixels.
    std::int16_t DisplayWidth = 0;  ///< LED pixels.
    bool IsDisplayColor = false;    ///< Shows more than one colour.
    std::string DefaultColor;       ///< Colour of texts that give none.
    std::string ColorsSupported;
    bool SwitchOperated = false;
    bool TempProbeInstalled = false;
    std::string DisplayIDs; ///< Address, or addresses, on the line.
    bool DaylightSavingsTime = false;
    std::int32_t ScrollPauseDelay = 0;
    std::int16_t TempProbeAdjust = 0;    ///< Added to the probe's reading.
    std::int16_t TimeZoneAdjustment = 0; ///< Of the sign's clock.
    std::int16_t ScrollingTextSpeed = 0;
    bool ResetOnGetParameters = false;
    std::int16_t BrightnessLevel = 0;
    std::int16_t LightSensorMinimum = 0; ///< Lowest brightness under the sensor.
    std::int16_t LightSensorMaximum = 0; ///< Highest brightness under the sensor; 0 if unset.
    std::string PhoneNumber;
    std::string IPAddress;
    std::string CommPort; ///< Serial port, or TCP port of a sign in the network.
    std::string BaudRate;
    std::int16_t ConnectionMethod = 0;
    bool LightSensorInstalled = false;
    std::int32_t FrameSize = 0;      ///< Of the sign; kept for the application.
    std::int16_t Switch1 = 0;        ///< Value of the first switch; kept for the application.
    std::int16_t Switch2 = 0;        ///< Value of the second switch; kept for the application.
    std::int16_t BlinkRateShow = 0;  ///< How long a blinking text is shown.
    std::int16_t BlinkRateClear = 0; ///< How long it is not shown.
    std::string AppDesc;             ///< Description of the sign's firmware, with its version.
    std::string BlinkBehavior;
    std::string BlinkTimes;
    // They have no meaning here, but are kept from file to file.
    std::string firstReserved;
    std::string secondReserved;
    OneBasedArray<BrightnessSchedule> schedules{kSchedulesOfADisplay};
    std::int16_t BrightnessScheduleDefaultBrightness = 0; ///< Brightness outside every schedule.

    bool operator==(const DisplayRecord&) const = default;
};

// Corrections of single members. Those that mend a sign after it was read from a file return whether they
// changed it.

/// Returns 9 for a `LightSensorMaximum` of 0, and any other value unchanged.
QRT_PUBLIC std::int16_t UsualMaximumIfUnset(const std::int16_t& maximum);
/// Replaces an unset maximum by the usual one, then raises it to the minimum.
QRT_PUBLIC bool MendLightSensorMaximum(DisplayRecord& sign);
/// Replaces the unset port of a sign in the network by the usual one. In a file, the connection method comes
/// after the port.
QRT_PUBLIC bool MendNetworkPort(DisplayRecord& sign);
/// Replaces 0, which old files hold for an unset value, by the usual value.
template <auto member, std::int16_t usual>
bool MendZero(DisplayRecord& sign) {
    const bool isUnset = sign.*member == 0;
    if (isUnset)
        sign.*member = usual;
    return isUnset;
}

/// A member of a sign. Its property may have corrections: functions that return what is stored in place of a
/// value.
template <class MemberValue, class PropertyValue = MemberValue>
struct SignMember {
    using Record = DisplayRecord;
    using Value = MemberValue;
    using Property = PropertyValue; ///< Type of the public class's property.
    using Correction = Value (*)(const Value&);

    std::string_view name; ///< Of the property; empty for a member that only files hold.
    Value Record::*member;
    Access access = Access::traced;
    /// Called after the value was read from a file; returns whether it changed the sign.
    bool (*mend)(DisplayRecord&) = nullptr;
    Correction onGet = nullptr; ///< Applied by reading the property, which stores the result.
    Correction onSet = nullptr; ///< Applied by writing the property.

    Value get(const Record& sign) const { return onGet ? onGet(sign.*member) : sign.*member; }
    void set(Record& sign, const Value& value) const {
        if (onSet)
            sign.*member = onSet(value);
        else
            sign.*member = value;
    }
};
template <class Value>
SignMember(std::string_view, Value DisplayRecord::*, Access = {}, bool (*)(DisplayRecord&) = nullptr,
           std::type_identity_t<Value (*)(const Value&)> = nullptr,
           std::type_identity_t<Value (*)(const Value&)> = nullptr) -> SignMember<Value>;

/// A number that the public class takes and gives as text.
constexpr SignMember<std::int16_t, std::string> NumberAsText(std::string_view name,
                                                             std::int16_t DisplayRecord::*member) {
    return {name, member};
}

/// A member of a brightness schedule.
template <class MemberValue>
struct ScheduleMember {
    using Record = BrightnessSchedule;
    using Value = MemberValue;
    using Property = Value;

    std::string_view name;
    Value Record::*member;
    std::string_view property; ///< Name of the public class's property.
    Access access = Access::traced;

    void set(Record& schedule, const Value& value) const { schedule.*member = value; }
};
template <class Value>
ScheduleMember(std::string_view, Value BrightnessSchedule::*, std::string_view) -> ScheduleMember<Value>;

/// A schedule's members in file order.
inline constexpr std::tuple kScheduleMembers{
    ScheduleMember{"BrightnessLevel", &BrightnessSchedule::BrightnessLevel,
                   "BrightnessScheduleXBrightnessLevel"},
    ScheduleMember{"StartTime", &BrightnessSchedule::StartTime, "BrightnessScheduleXStartTime"},
    ScheduleMember{"StopTime", &BrightnessSchedule::StopTime, "BrightnessScheduleXStopTime"},
};

/// The schedules of a sign, each with the members of `elements`.
struct SchedulesOfSign {
    using Record = DisplayRecord;
    static constexpr const auto& elements = kScheduleMembers;

    std::string_view name;
    std::string_view elementName;
    OneBasedArray<BrightnessSchedule> Record::*member;
    Access access = Access::none;
};

/// A sign's members in file order.
inline constexpr std::tuple kDisplayMembers{
    SignMember{"DisplayName", &DisplayRecord::DisplayName, Access::traced, nullptr, &EscapeNumericName,
               &EscapeNumericName},
    NumberAsText("DisplayType", &DisplayRecord::DisplayType),
    SignMember{"DisplayHeight", &DisplayRecord::DisplayHeight},
    SignMember{"DisplayWidth", &DisplayRecord::DisplayWidth},
    SignMember{"IsDisplayColor", &DisplayRecord::IsDisplayColor},
    SignMember{"DefaultColor", &DisplayRecord::DefaultColor},
    SignMember{"ColorsSupported", &DisplayRecord::ColorsSupported},
    SignMember{"SwitchOperated", &DisplayRecord::SwitchOperated},
    SignMember{"TempProbeInstalled", &DisplayRecord::TempProbeInstalled},
    SignMember{"DisplayIDs", &DisplayRecord::DisplayIDs},
    SignMember{"DaylightSavingsTime", &DisplayRecord::DaylightSavingsTime},
    SignMember{"ScrollPauseDelay", &DisplayRecord::ScrollPauseDelay},
    SignMember{"TempProbeAdjust", &DisplayRecord::TempProbeAdjust},
    SignMember{"TimeZoneAdjustment", &DisplayRecord::TimeZoneAdjustment},
    SignMember{"ScrollingTextSpeed", &DisplayRecord::ScrollingTextSpeed},
    SignMember{"ResetOnGetParameters", &DisplayRecord::ResetOnGetParameters},
    SignMember{"BrightnessLevel", &DisplayRecord::BrightnessLevel},
    SignMember{"LightSensorMinimum", &DisplayRecord::LightSensorMinimum},
    SignMember{"LightSensorMaximum", &DisplayRecord::LightSensorMaximum, Access::traced,
               &MendLightSensorMaximum, &UsualMaximumIfUnset},
    SignMember{"PhoneNumber", &DisplayRecord::PhoneNumber},
    SignMember{"IPAddress", &DisplayRecord::IPAddress},
    SignMember{"CommPort", &DisplayRecord::CommPort},
    SignMember{"BaudRate", &DisplayRecord::BaudRate},
    SignMember{"ConnectionMethod", &DisplayRecord::ConnectionMethod, Access::traced, &MendNetworkPort},
    SignMember{"LightSensorInstalled", &DisplayRecord::LightSensorInstalled},
    SignMember{"FrameSize", &DisplayRecord::FrameSize, Access::trapped},
    SignMember{"Switch1", &DisplayRecord::Switch1, Access::trapped},
    SignMember{"Switch2", &DisplayRecord::Switch2, Access::trapped},
    SignMember{"BlinkRateShow", &DisplayRecord::BlinkRateShow, Access::trapped,
               &MendZero<&DisplayRecord::BlinkRateShow, 600>},
    SignMember{"BlinkRateClear", &DisplayRecord::BlinkRateClear, Access::trapped,
               &MendZero<&DisplayRecord::BlinkRateClear, 400>},
    SignMember{"AppDesc", &DisplayRecord::AppDesc, Access::trapped},
    SignMember{"BlinkBehavior", &DisplayRecord::BlinkBehavior, Access::trapped},
    SignMember{"BlinkTimes", &DisplayRecord::BlinkTimes, Access::trapped},
    SignMember{"", &DisplayRecord::firstReserved, Access::none},
    SignMember{"", &DisplayRecord::secondReserved, Access::none},
    SignMember{"BrightnessScheduleDefaultBrightness", &DisplayRecord::BrightnessScheduleDefaultBrightness},
    SchedulesOfSign{"Schedules", "Schedule", &DisplayRecord::schedules},
};

} // namespace qrtVistrelClasses4
