// The application's preferences.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/LastError.h>
#include <qrtVistrelClasses4/Preferences.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The preferences in memory. They are loaded from and saved to "VistrelLite.ini" in the application data
/// folder. Setting a property touches no file. One thread at a time. Traced members trap their errors; plain
/// accessors are untraced.
class SettingsInfoClass {
public:
    /// Starts with the defaults, and with schedule 1 selected. The preferences on disk are not touched.
    SettingsInfoClass();
    ~SettingsInfoClass();
    SettingsInfoClass(const SettingsInfoClass&) = delete;
    SettingsInfoClass& operator=(const SettingsInfoClass&) = delete;

    static constexpr std::string_view ClassName() { return "SettingsInfoClass"; }

    /// The object's identity number, from 1; 0 if there were no numbers left. Each thread counts on its own,
    /// so objects of two threads can have the same number.
    std::int32_t ClassDebugID() const { return classDebugID_; }

    /// All preferences at once.
    const Preferences& Value() const { return preferences_; }

    /// The value of `Key` in the file as it is now, cut to 254 characters; `DefaultValue` if it is missing.
    std::string GetPrivateSetting(const std::string& Key, const std::string& DefaultValue) const;
    /// Writes one key, and makes the file and the section if needed. A failure is a quiet error.
    void WriteSetting(const std::string& Key, const std::string& Value);

    /// Loads every preference, and makes the playfile folder in the user's documents if it is missing. A
    /// value that does not convert leaves its preference as it is; all of them together are one error, which
    /// is trapped and names their keys. A file that cannot be read counts as a missing one. `sFileName` is
    /// only shown on the trace.
    void GetSettingsFromDisk(const std::optional<std::string>& sFileName = std::nullopt);
    /// Saves every preference, also over a value that did not convert. `sFileName` is only shown on the
    /// trace.
    void SaveSettingsToDisk(const std::optional<std::string>& sFileName = std::nullopt);

    /// Number (1 to 4) of the schedule that the schedule properties address. Any value is kept; it is checked
    /// when used.
    std::int16_t ScheduleNumber() const { return readOwn(scheduleNumber_); }
    void ScheduleNumber(std::int16_t vData) { writeOwn(scheduleNumber_, vData); }
    /// Schedule properties are traced. A number outside the schedules is error 9.
    std::string BrightnessScheduleStartTime() const {
        return read<&PreferredSchedule::BrightnessScheduleStartTime>();
    }
    void BrightnessScheduleStartTime(const std::string& vData) {
        write<&PreferredSchedule::BrightnessScheduleStartTime>(vData);
    }
    std::string BrightnessScheduleStopTime() const {
        return read<&PreferredSchedule::BrightnessScheduleStopTime>();
    }
    void BrightnessScheduleStopTime(const std::string& vData) {
        write<&PreferredSchedule::BrightnessScheduleStopTime>(vData);
    }
    std::int16_t BrightnessScheduleBrightnessLevel() const {
        return read<&PreferredSchedule::BrightnessScheduleBrightnessLevel>();
    }
    void BrightnessScheduleBrightnessLevel(std::int16_t vData) {
        write<&PreferredSchedule::BrightnessScheduleBrightnessLevel>(vData);
    }

    /// Held in memory only.
    bool ShowFullPath() const { return readOwn(showFullPath_); }
    void ShowFullPath(bool vData) { writeOwn(showFullPath_, vData); }

    std::string LastGraphicFilePath() const { return read<&Preferences::LastGraphicFilePath>(); }
    void LastGraphicFilePath(const std::string& vData) { write<&Preferences::LastGraphicFilePath>(vData); }
    std::int16_t DisplayHeight() const { return read<&Preferences::DisplayHeight>(); }
    void DisplayHeight(std::int16_t vData) { write<&Preferences::DisplayHeight>(vData); }
    std::int16_t DisplayWidth() const { return read<&Preferences::DisplayWidth>(); }
    void DisplayWidth(std::int16_t vData) { write<&Preferences::DisplayWidth>(vData); }
    double DelayMinimum() const { return read<&Preferences::DelayMinimum>(); }
    void DelayMinimum(double vData) { write<&Preferences::DelayMinimum>(vData); }
    double DelayMaximum() const { return read<&Preferences::DelayMaximum>(); }
    void DelayMaximum(double vData) { write<&Preferences::DelayMaximum>(vData); }
    double DelayStep() const { return read<&Preferences::DelayStep>(); }
    void DelayStep(double vData) { write<&Preferences::DelayStep>(vData); }
    bool WizardMode() const { return read<&Preferences::WizardMode>(); }
    void WizardMode(bool vData) { write<&Preferences::WizardMode>(vData); }
    bool SwitchOperated() const { return read<&Preferences::SwitchOperated>(); }
    void SwitchOperated(bool vData) { write<&Preferences::SwitchOperated>(vData); }
    std::string DisplayID() const { return read<&Preferences::DisplayID>(); }
    void DisplayID(const std::string& vData) { write<&Preferences::DisplayID>(vData); }
    std::int16_t ScrollPauseDelay() const { return read<&Preferences::ScrollPauseDelay>(); }
    void ScrollPauseDelay(std::int16_t vData) { write<&Preferences::ScrollPauseDelay>(vData); }
    std::int16_t TemperatureProbeAdjust() const { return read<&Preferences::TemperatureProbeAdjust>(); }
    void TemperatureProbeAdjust(std::int16_t vData) { write<&Preferences::TemperatureProbeAdjust>(vData); }
    std::int16_t TimeZoneAdjust() const { return read<&Preferences::TimeZoneAdjust>(); }
    void TimeZoneAdjust(std::int16_t vData) { write<&Preferences::TimeZoneAdjust>(vData); }
    bool ResetOnGetParameters() const { return read<&Preferences::ResetOnGetParameters>(); }
    void ResetOnGetParameters(bool vData) { write<&Preferences::ResetOnGetParameters>(vData); }
    std::int16_t ScrollingTextSpeed() const { return read<&Preferences::ScrollingTextSpeed>(); }
    void ScrollingTextSpeed(std::int16_t vData) { write<&Preferences::ScrollingTextSpeed>(vData); }
    bool UseDaylightSavingsTime() const { return read<&Preferences::UseDaylightSavingsTime>(); }
    void UseDaylightSavingsTime(bool vData) { write<&Preferences::UseDaylightSavingsTime>(vData); }
    std::int16_t DisplayBrightnessLevel() const { return read<&Preferences::DisplayBrightnessLevel>(); }
    void DisplayBrightnessLevel(std::int16_t vData) { write<&Preferences::DisplayBrightnessLevel>(vData); }
    std::int16_t SensorLimitMinimum() const { return read<&Preferences::SensorLimitMinimum>(); }
    void SensorLimitMinimum(std::int16_t vData) { write<&Preferences::SensorLimitMinimum>(vData); }
    std::int16_t SensorLimitMaximum() const { return read<&Preferences::SensorLimitMaximum>(); }
    void SensorLimitMaximum(std::int16_t vData) { write<&Preferences::SensorLimitMaximum>(vData); }
    std::int16_t ScheduleDefaultBrightness() const { return read<&Preferences::ScheduleDefaultBrightness>(); }
    void ScheduleDefaultBrightness(std::int16_t vData) {
        write<&Preferences::ScheduleDefaultBrightness>(vData);
    }
    bool DoesDisplaySupportColor() const { return read<&Preferences::DoesDisplaySupportColor>(); }
    void DoesDisplaySupportColor(bool vData) { write<&Preferences::DoesDisplaySupportColor>(vData); }
    std::string LastPlayfilePath() const { return read<&Preferences::LastPlayfilePath>(); }
    void LastPlayfilePath(const std::string& vData) { write<&Preferences::LastPlayfilePath>(vData); }
    bool SupportOldFirmware() const { return read<&Preferences::SupportOldFirmware>(); }
    void SupportOldFirmware(bool vData) { write<&Preferences::SupportOldFirmware>(vData); }
    bool PlayAutoEnable() const { return read<&Preferences::PlayAutoEnable>(); }
    void PlayAutoEnable(bool vData) { write<&Preferences::PlayAutoEnable>(vData); }
    bool ChooseDispGetInfo() const { return read<&Preferences::ChooseDispGetInfo>(); }
    void ChooseDispGetInfo(bool vData) { write<&Preferences::ChooseDispGetInfo>(vData); }
    bool ChooseDispTransmit() const { return read<&Preferences::ChooseDispTransmit>(); }
    void ChooseDispTransmit(bool vData) { write<&Preferences::ChooseDispTransmit>(vData); }
    bool AVIFixedDelay() const { return read<&Preferences::AVIFixedDelay>(); }
    void AVIFixedDelay(bool vData) { write<&Preferences::AVIFixedDelay>(vData); }
    std::int16_t AVIDelay() const { return read<&Preferences::AVIDelay>(); }
    void AVIDelay(std::int16_t vData) { write<&Preferences::AVIDelay>(vData); }
    std::int16_t DefaultDelay() const { return read<&Preferences::DefaultDelay>(); }
    void DefaultDelay(std::int16_t vData) { write<&Preferences::DefaultDelay>(vData); }
    std::int16_t BroadcastTRDelay() const { return read<&Preferences::BroadcastTRDelay>(); }
    void BroadcastTRDelay(std::int16_t vData) { write<&Preferences::BroadcastTRDelay>(vData); }
    bool ShowImages() const { return read<&Preferences::ShowImages>(); }
    void ShowImages(bool vData) { write<&Preferences::ShowImages>(vData); }
    bool AVICrop() const { return read<&Preferences::AVICrop>(); }
    void AVICrop(bool vData) { write<&Preferences::AVICrop>(vData); }
    bool BMPCrop() const { return read<&Preferences::BMPCrop>(); }
    void BMPCrop(bool vData) { write<&Preferences::BMPCrop>(vData); }

    /// Number and description of the error of the last call, see `LastError`; 0 and "" if it had none.
    /// Untraced.
    std::int32_t LastErrorNumber() const { return lastError_.number(); }
    std::string LastErrorDescription() const { return lastError_.description(); }

private:
    friend struct LastErrorAccess;

    template <class T>
    T readOwn(T field) const {
        lastError_.begin();
        return field;
    }
    template <class T>
    void writeOwn(T& field, T vData) {
        lastError_.begin();
        field = vData;
    }
    template <auto member>
    PreferenceValue<member> read() const {
        return readMember(kPreferenceRow<member>.access, kPreferenceRow<member>.name, member);
    }
    template <auto member>
    void write(const PreferenceValue<member>& vData) {
        writeMember(kPreferenceRow<member>.access, kPreferenceRow<member>.name, member, vData);
    }
    template <class Record, class T>
    T readMember(Access access, std::string_view name, T Record::*member) const;
    template <class Record, class T>
    void writeMember(Access access, std::string_view name, T Record::*member, const T& vData);

    std::int32_t classDebugID_ = 0;
    Preferences preferences_;
    std::int16_t scheduleNumber_ = 1;
    bool showFullPath_ = false;
    mutable LastError lastError_;
};

} // namespace qrtVistrelClasses4
