// The application's preferences as plain values, and the table of their names, keys and defaults.
#pragma once

#include "frame/OneBasedArray.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

namespace qrtVistrelClasses4 {

inline constexpr std::int16_t kBrightnessSchedules = 4;

/// Part of a day at its own brightness. Times are texts of the form "6:30 PM".
struct BrightnessScheduleSettings {
    std::string BrightnessScheduleStartTime;
    std::string BrightnessScheduleStopTime;
    std::int16_t BrightnessScheduleBrightnessLevel{};

    bool operator==(const BrightnessScheduleSettings&) const = default;
};

struct SettingsRecord {
    std::string LastGraphicFilePath;
    std::int16_t DisplayHeight{};
    std::int16_t DisplayWidth{};
    double DelayMinimum{};
    double DelayMaximum{};
    double DelayStep{};
    bool WizardMode{};
    bool SwitchOperated{};
    std::string DisplayID;
    std::int16_t ScrollPauseDelay{};
    std::int16_t TemperatureProbeAdjust{};
    std::int16_t TimeZoneAdjust{};
    bool ResetOnGetParameters{};
    std::int16_t ScrollingTextSpeed{};
    bool UseDaylightSavingsTime{};
    std::int16_t DisplayBrightnessLevel{};
    std::int16_t SensorLimitMinimum{};
    std::int16_t SensorLimitMaximum{};
    std::int16_t ScheduleDefaultBrightness{};
    OneBasedArray<BrightnessScheduleSettings> schedules{kBrightnessSchedules};
    bool DoesDisplaySupportColor{};
    std::string LastPlayfilePath;
    bool SupportOldFirmware{};
    bool PlayAutoEnable{};
    bool ChooseDispGetInfo{};
    bool ChooseDispTransmit{};
    bool AVIFixedDelay{};
    std::int16_t AVIDelay{};
    std::int16_t DefaultDelay{};
    std::int16_t BroadcastTRDelay{};
    bool ShowImages{};
    bool AVICrop{};
    bool BMPCrop{};

    bool operator==(const SettingsRecord&) const = default;
};

/// One preference: property name, key in the INI file, place in its record, and the text that a missing key
/// reads as.
template <class Record, class Value>
struct Setting {
    std::string_view property;
    std::string_view key;
    Value Record::*member;
    std::string_view defaultText;
};
template <class Record, class Value>
Setting(std::string_view, std::string_view, Value Record::*, std::string_view) -> Setting<Record, Value>;

/// The preferences in the order in which they are loaded and saved, up to the brightness schedules. The two
/// folders have no fixed default.
inline constexpr std::tuple kSettingsBeforeSchedules{
    Setting{"LastGraphicFilePath", "LastGraphicPath", &SettingsRecord::LastGraphicFilePath, ""},
    Setting{"DisplayHeight", "DisplayHeight", &SettingsRecord::DisplayHeight, "64"},
    Setting{"DisplayWidth", "DisplayWidth", &SettingsRecord::DisplayWidth, "128"},
    Setting{"DelayMinimum", "DelayMinimum", &SettingsRecord::DelayMinimum, "0"},
    Setting{"DelayMaximum", "DelayMaximum", &SettingsRecord::DelayMaximum, "10000"},
    Setting{"DelayStep", "DelayStep", &SettingsRecord::DelayStep, "500"},
    Setting{"WizardMode", "WizardMode", &SettingsRecord::WizardMode, "False"},
    Setting{"SwitchOperated", "SwitchOperated", &SettingsRecord::SwitchOperated, "False"},
    Setting{"DisplayID", "DisplayID", &SettingsRecord::DisplayID, "1"},
    Setting{"ScrollPauseDelay", "ScrollPauseDelay", &SettingsRecord::ScrollPauseDelay, "5"},
    Setting{"TemperatureProbeAdjust", "TemperatureProbeAdjustment", &SettingsRecord::TemperatureProbeAdjust,
            "0"},
    Setting{"TimeZoneAdjust", "TimeZoneAdjustment", &SettingsRecord::TimeZoneAdjust, "0"},
    Setting{"ResetOnGetParameters", "ResetOnGetParameters", &SettingsRecord::ResetOnGetParameters, "True"},
    Setting{"ScrollingTextSpeed", "ScrollingTextSpeed", &SettingsRecord::ScrollingTextSpeed, "2"},
    Setting{"UseDaylightSavingsTime", "UseDaylightSavingsTime", &SettingsRecord::UseDaylightSavingsTime,
            "True"},
    Setting{"DisplayBrightnessLevel", "DisplayBrightnessLevel", &SettingsRecord::DisplayBrightnessLevel, "5"},
    Setting{"SensorLimitMinimum", "SensorLimitMinimum", &SettingsRecord::SensorLimitMinimum, "3"},
    Setting{"SensorLimitMaximum", "SensorLimitMaximum", &SettingsRecord::SensorLimitMaximum, "7"},
    Setting{"ScheduleDefaultBrightness", "ScheduleDefaultBrightness",
            &SettingsRecord::ScheduleDefaultBrightness, "5"},
};
/// The preferences of one schedule; its number (1 to 4) follows the key.
inline constexpr std::tuple kScheduleSettings{
    Setting{"BrightnessScheduleStartTime", "ScheduledStartTime",
            &BrightnessScheduleSettings::BrightnessScheduleStartTime, "12:00 AM"},
    Setting{"BrightnessScheduleStopTime", "ScheduledStopTime",
            &BrightnessScheduleSettings::BrightnessScheduleStopTime, "12:00 AM"},
    Setting{"BrightnessScheduleBrightnessLevel", "ScheduledBrightnessLevel",
            &BrightnessScheduleSettings::BrightnessScheduleBrightnessLevel, "5"},
};
inline constexpr std::tuple kSettingsAfterSchedules{
    // The key lacks its "t" in every file there is.
    Setting{"DoesDisplaySupportColor", "DoesDisplaySupporColor", &SettingsRecord::DoesDisplaySupportColor,
            "False"},
    Setting{"LastPlayfilePath", "LastPlayfilePath", &SettingsRecord::LastPlayfilePath, ""},
    Setting{"SupportOldFirmware", "SupportOldFirmware", &SettingsRecord::SupportOldFirmware, "FALSE"},
    Setting{"PlayAutoEnable", "PlayAutoEnable", &SettingsRecord::PlayAutoEnable, "TRUE"},
    Setting{"ChooseDispGetInfo", "ChooseDispGetInfo", &SettingsRecord::ChooseDispGetInfo, "FALSE"},
    Setting{"ChooseDispTransmit", "ChooseDispTransmit", &SettingsRecord::ChooseDispTransmit, "FALSE"},
    Setting{"AVIFixedDelay", "AVIFixedDelay", &SettingsRecord::AVIFixedDelay, "FALSE"},
    Setting{"AVIDelay", "AVIDelay", &SettingsRecord::AVIDelay, "50"},
    Setting{"DefaultDelay", "DefaultDelay", &SettingsRecord::DefaultDelay, "3"},
    Setting{"BroadcastTRDelay", "BroadcastTRDelay", &SettingsRecord::BroadcastTRDelay, "500"},
    Setting{"ShowImages", "ShowImage", &SettingsRecord::ShowImages, "True"},
    Setting{"AVICrop", "AVICrop", &SettingsRecord::AVICrop, "FALSE"},
    Setting{"BMPCrop", "BMPCrop", &SettingsRecord::BMPCrop, "FALSE"},
};

/// Calls `visit(key, value, defaultText, property)` for every preference of `record` in file order, each of
/// the four schedules at its place with its number in key and property ("ScheduledStartTime2").
template <class Record, class Visitor>
void ForEachSetting(Record& record, Visitor visit) {
    const auto visitAll = [&](const auto& table, auto& values, const std::string& number) {
        std::apply(
            [&](const auto&... row) {
                (visit(std::string(row.key) + number, values.*row.member, row.defaultText,
                       std::string(row.property) + number),
                 ...);
            },
            table);
    };
    visitAll(kSettingsBeforeSchedules, record, "");
    for (std::int32_t number = 1; number <= record.schedules.upperBound(); ++number)
        visitAll(kScheduleSettings, record.schedules.at(number), std::to_string(number));
    visitAll(kSettingsAfterSchedules, record, "");
}

} // namespace qrtVistrelClasses4
