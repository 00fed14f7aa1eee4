// The application's preferences.
#pragma once

#include "settings/SettingsRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

class ProfileFile;

/// The preferences in memory, and their way from and to "VistrelLite.ini" in the application data folder.
/// Setting a property touches no file. One thread at a time. Traced members trap their errors; plain
/// accessors are untraced.
class SettingsInfoClass {
public:
    /// The defaults, with schedule 1 selected; the preferences on the disk are left alone.
    SettingsInfoClass();
    ~SettingsInfoClass();
    SettingsInfoClass(const SettingsInfoClass&) = delete;
    SettingsInfoClass& operator=(const SettingsInfoClass&) = delete;

    static constexpr std::string_view ClassName() { return "SettingsInfoClass"; }

    /// The object's identity number, from 1; 0 when the numbers ran out.
    std::int32_t ClassDebugID() const { return classDebugID_; }

    /// The value of `Key` in the file as it is now, cut to 254 characters; `DefaultValue` when it is missing.
    std::string GetPrivateSetting(const std::string& Key, const std::string& DefaultValue);
    /// Writes one key, making file and section when needed. Failure is not told.
    void WriteSetting(const std::string& Key, const std::string& Value);

    /// Loads every preference, and makes the playfile folder in the user's documents when it is missing. A
    /// value that does not convert is trapped; those before it are loaded then. `sFileName` is only noted on
    /// the trace.
    void GetSettingsFromDisk(const std::optional<std::string>& sFileName = std::nullopt);
    /// Saves every preference. `sFileName` is only noted on the trace.
    void SaveSettingsToDisk(const std::optional<std::string>& sFileName = std::nullopt);

    /// All preferences at once.
    const SettingsRecord& Settings() const { return settings_; }

    /// Which schedule (1 to 4) the schedule properties address. Any value is kept; it is checked when used.
    std::int16_t ScheduleNumber() const { return scheduleNumber_; }
    void ScheduleNumber(std::int16_t vData) { scheduleNumber_ = vData; }
    /// Schedule properties are traced; outside the schedules: error 9.
    std::string BrightnessScheduleStartTime();
    void BrightnessScheduleStartTime(const std::string& vData);
    std::string BrightnessScheduleStopTime();
    void BrightnessScheduleStopTime(const std::string& vData);
    std::int16_t BrightnessScheduleBrightnessLevel();
    void BrightnessScheduleBrightnessLevel(std::int16_t vData);

    /// Held in memory only.
    bool ShowFullPath() const { return showFullPath_; }
    void ShowFullPath(bool vData) { showFullPath_ = vData; }

    std::string LastGraphicFilePath() const;
    void LastGraphicFilePath(const std::string& vData);
    std::int16_t DisplayHeight() const { return settings_.DisplayHeight; }
    void DisplayHeight(std::int16_t vData) { settings_.DisplayHeight = vData; }
    std::int16_t DisplayWidth() const { return settings_.DisplayWidth; }
    void DisplayWidth(std::int16_t vData) { settings_.DisplayWidth = vData; }
    double DelayMinimum() const { return settings_.DelayMinimum; }
    void DelayMinimum(double vData) { settings_.DelayMinimum = vData; }
    double DelayMaximum() const { return settings_.DelayMaximum; }
    void DelayMaximum(double vData) { settings_.DelayMaximum = vData; }
    double DelayStep() const { return settings_.DelayStep; }
    void DelayStep(double vData) { settings_.DelayStep = vData; }
    bool WizardMode() const { return settings_.WizardMode; }
    void WizardMode(bool vData) { settings_.WizardMode = vData; }
    bool SwitchOperated() const { return settings_.SwitchOperated; }
    void SwitchOperated(bool vData) { settings_.SwitchOperated = vData; }
    std::string DisplayID() const;
    void DisplayID(const std::string& vData);
    std::int16_t ScrollPauseDelay() const { return settings_.ScrollPauseDelay; }
    void ScrollPauseDelay(std::int16_t vData) { settings_.ScrollPauseDelay = vData; }
    std::int16_t TemperatureProbeAdjust() const { return settings_.TemperatureProbeAdjust; }
    void TemperatureProbeAdjust(std::int16_t vData) { settings_.TemperatureProbeAdjust = vData; }
    std::int16_t TimeZoneAdjust() const { return settings_.TimeZoneAdjust; }
    void TimeZoneAdjust(std::int16_t vData) { settings_.TimeZoneAdjust = vData; }
    bool ResetOnGetParameters() const { return settings_.ResetOnGetParameters; }
    void ResetOnGetParameters(bool vData) { settings_.ResetOnGetParameters = vData; }
    std::int16_t ScrollingTextSpeed() const { return settings_.ScrollingTextSpeed; }
    void ScrollingTextSpeed(std::int16_t vData) { settings_.ScrollingTextSpeed = vData; }
    bool UseDaylightSavingsTime() const { return settings_.UseDaylightSavingsTime; }
    void UseDaylightSavingsTime(bool vData) { settings_.UseDaylightSavingsTime = vData; }
    std::int16_t DisplayBrightnessLevel() const { return settings_.DisplayBrightnessLevel; }
    void DisplayBrightnessLevel(std::int16_t vData) { settings_.DisplayBrightnessLevel = vData; }
    std::int16_t SensorLimitMinimum() const { return settings_.SensorLimitMinimum; }
    void SensorLimitMinimum(std::int16_t vData) { settings_.SensorLimitMinimum = vData; }
    std::int16_t SensorLimitMaximum() const { return settings_.SensorLimitMaximum; }
    void SensorLimitMaximum(std::int16_t vData) { settings_.SensorLimitMaximum = vData; }
    std::int16_t ScheduleDefaultBrightness() const { return settings_.ScheduleDefaultBrightness; }
    void ScheduleDefaultBrightness(std::int16_t vData) { settings_.ScheduleDefaultBrightness = vData; }
    bool DoesDisplaySupportColor() const { return settings_.DoesDisplaySupportColor; }
    void DoesDisplaySupportColor(bool vData) { settings_.DoesDisplaySupportColor = vData; }
    std::string LastPlayfilePath() const;
    void LastPlayfilePath(const std::string& vData);
    bool SupportOldFirmware() const { return settings_.SupportOldFirmware; }
    void SupportOldFirmware(bool vData) { settings_.SupportOldFirmware = vData; }
    bool PlayAutoEnable() const { return settings_.PlayAutoEnable; }
    void PlayAutoEnable(bool vData) { settings_.PlayAutoEnable = vData; }
    bool ChooseDispGetInfo() const { return settings_.ChooseDispGetInfo; }
    void ChooseDispGetInfo(bool vData) { settings_.ChooseDispGetInfo = vData; }
    bool ChooseDispTransmit() const { return settings_.ChooseDispTransmit; }
    void ChooseDispTransmit(bool vData) { settings_.ChooseDispTransmit = vData; }
    bool AVIFixedDelay() const { return settings_.AVIFixedDelay; }
    void AVIFixedDelay(bool vData) { settings_.AVIFixedDelay = vData; }
    std::int16_t AVIDelay() const { return settings_.AVIDelay; }
    void AVIDelay(std::int16_t vData) { settings_.AVIDelay = vData; }
    std::int16_t DefaultDelay() const { return settings_.DefaultDelay; }
    void DefaultDelay(std::int16_t vData) { settings_.DefaultDelay = vData; }
    std::int16_t BroadcastTRDelay() const { return settings_.BroadcastTRDelay; }
    void BroadcastTRDelay(std::int16_t vData) { settings_.BroadcastTRDelay = vData; }
    bool ShowImages() const { return settings_.ShowImages; }
    void ShowImages(bool vData) { settings_.ShowImages = vData; }
    bool AVICrop() const { return settings_.AVICrop; }
    void AVICrop(bool vData) { settings_.AVICrop = vData; }
    bool BMPCrop() const { return settings_.BMPCrop; }
    void BMPCrop(bool vData) { settings_.BMPCrop = vData; }

private:
    template <class Value>
    Value readSchedule(std::string_view name, Value BrightnessScheduleSettings::*member);
    template <class Value>
    void writeSchedule(std::string_view name, Value BrightnessScheduleSettings::*member, const Value& vData);
    /// On the file that is open, or else on the file as it is now.
    std::string readSetting(ProfileFile* opened, const std::string& Key, const std::string& DefaultValue);
    void writeSetting(ProfileFile* opened, const std::string& Key, const std::string& Value);

    std::int32_t classDebugID_ = 0;
    SettingsRecord settings_;
    std::int16_t scheduleNumber_ = 1;
    bool showFullPath_ = false;
};

} // namespace qrtVistrelClasses4
