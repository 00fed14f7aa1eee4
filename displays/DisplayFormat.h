// The list of signs as a file: one value a line, sign after sign, without names, count or version.
#pragma once

#include "displays/DisplayRecord.h"
#include "frame/DelimitedValues.h"

#include <tuple>

namespace qrtVistrelClasses4 {

/// A value that old files leave empty: it is mended as soon as it is read.
template <class Value>
struct MendedField {
    Value DisplayRecord::*member;
    void (*mend)(DisplayRecord&);
};
template <class Value>
MendedField(Value DisplayRecord::*, void (*)(DisplayRecord&)) -> MendedField<Value>;

// They look at values before them, too.
void MendLightSensorMaximum(DisplayRecord& display);
/// For a sign in the network, which is told by a value behind that of the port.
void MendNetworkPort(DisplayRecord& display);
void MendBlinkRateShow(DisplayRecord& display);
void MendBlinkRateClear(DisplayRecord& display);

/// A sign's values in file order; its schedules follow them.
inline constexpr std::tuple kDisplayFields{
    &DisplayRecord::DisplayName,
    &DisplayRecord::DisplayType,
    &DisplayRecord::DisplayHeight,
    &DisplayRecord::DisplayWidth,
    &DisplayRecord::IsDisplayColor,
    &DisplayRecord::DefaultColor,
    &DisplayRecord::ColorsSupported,
    &DisplayRecord::SwitchOperated,
    &DisplayRecord::TempProbeInstalled,
    &DisplayRecord::DisplayIDs,
    &DisplayRecord::DaylightSavingsTime,
    &DisplayRecord::ScrollPauseDelay,
    &DisplayRecord::TempProbeAdjust,
    &DisplayRecord::TimeZoneAdjustment,
    &DisplayRecord::ScrollingTextSpeed,
    &DisplayRecord::ResetOnGetParameters,
    &DisplayRecord::BrightnessLevel,
    &DisplayRecord::LightSensorMinimum,
    MendedField{&DisplayRecord::LightSensorMaximum, &MendLightSensorMaximum},
    &DisplayRecord::PhoneNumber,
    &DisplayRecord::IPAddress,
    &DisplayRecord::CommPort,
    &DisplayRecord::BaudRate,
    MendedField{&DisplayRecord::ConnectionMethod, &MendNetworkPort},
    &DisplayRecord::LightSensorInstalled,
    &DisplayRecord::FrameSize,
    &DisplayRecord::Switch1,
    &DisplayRecord::Switch2,
    MendedField{&DisplayRecord::BlinkRateShow, &MendBlinkRateShow},
    MendedField{&DisplayRecord::BlinkRateClear, &MendBlinkRateClear},
    &DisplayRecord::AppDesc,
    &DisplayRecord::BlinkBehavior,
    &DisplayRecord::BlinkTimes,
    &DisplayRecord::firstReserved,
    &DisplayRecord::secondReserved,
    &DisplayRecord::BrightnessScheduleDefaultBrightness,
};

/// A schedule's values in file order.
inline constexpr std::tuple kScheduleFields{
    &BrightnessSchedule::BrightnessLevel,
    &BrightnessSchedule::StartTime,
    &BrightnessSchedule::StopTime,
};

/// Also how many lines each sign is written in.
inline constexpr int kValuesOfADisplay =
    static_cast<int>(std::tuple_size_v<decltype(kDisplayFields)> +
                     kSchedulesOfADisplay * std::tuple_size_v<decltype(kScheduleFields)>);

/// Reads one sign. At an error the values before the bad one have been read.
void ReadDisplay(DelimitedReader& in, DisplayRecord& display);
void WriteDisplay(DelimitedWriter& out, const DisplayRecord& display);

} // namespace qrtVistrelClasses4
