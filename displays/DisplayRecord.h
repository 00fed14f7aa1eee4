// What is known of one sign ("display").
#pragma once

#include "frame/OneBasedArray.h"

#include <cstdint>
#include <string>

namespace qrtVistrelClasses4 {

inline constexpr std::int16_t kSchedulesOfADisplay = 4;

// Values of `ConnectionMethod`.
inline constexpr std::int16_t kDirectConnection = 1; ///< Serial.
inline constexpr std::int16_t kNetworkConnection = 2;
inline constexpr std::int16_t kModemConnection = 3;

/// What a `LightSensorMaximum` of 0 stands for.
inline constexpr std::int16_t kUnsetLightSensorMaximum = 9;

/// Part of a day at its own brightness. Times are kept as the application gives them.
struct BrightnessSchedule {
    std::string StartTime;
    std::string StopTime;
    std::int16_t BrightnessLevel = 0;

    bool operator==(const BrightnessSchedule&) const = default;
};

/// Units of delays, speeds and rates, and the forms of colours, addresses and blink texts, are the
/// application's and the sign's own.
struct DisplayRecord {
    std::string DisplayName;
    std::int16_t DisplayType = 0;   ///< Number of the sign type.
    std::int16_t DisplayHeight = 0; ///< LED pixels.
    std::int16_t DisplayWidth = 0;  ///< LED pixels.
    bool IsDisplayColor = false;    ///< Shows more than one colour.
    std::string DefaultColor;       ///< Of texts that give none.
    std::string ColorsSupported;
    bool SwitchOperated = false;
    bool TempProbeInstalled = false;
    std::string DisplayIDs; ///< Address, or addresses, on the line.
    bool DaylightSavingsTime = false;
    std::int32_t ScrollPauseDelay = 0;
    std::int16_t TempProbeAdjust = 0; ///< Added to the probe's reading.
    std::int16_t TimeZoneAdjustment = 0;
    std::int16_t ScrollingTextSpeed = 0;
    bool ResetOnGetParameters = false;
    std::int16_t BrightnessLevel = 0;
    std::int16_t LightSensorMinimum = 0; ///< Lowest brightness under the sensor.
    std::int16_t LightSensorMaximum = 0; ///< Highest; 0 when unset.
    std::string PhoneNumber;
    std::string IPAddress;
    std::string CommPort; ///< Serial port, or TCP port of a sign in the network.
    std::string BaudRate;
    std::int16_t ConnectionMethod = 0;
    bool LightSensorInstalled = false;
    std::int32_t FrameSize = 0;
    std::int16_t Switch1 = 0;
    std::int16_t Switch2 = 0;
    std::int16_t BlinkRateShow = 0;
    std::int16_t BlinkRateClear = 0;
    std::string AppDesc; ///< The sign's firmware, with its version.
    std::string BlinkBehavior;
    std::string BlinkTimes;
    // Carried from file to file; nothing here gives them a meaning.
    std::string firstReserved;
    std::string secondReserved;
    OneBasedArray<BrightnessSchedule> schedules{kSchedulesOfADisplay};
    std::int16_t BrightnessScheduleDefaultBrightness = 0; ///< Outside every schedule.

    bool operator==(const DisplayRecord&) const = default;
};

} // namespace qrtVistrelClasses4
