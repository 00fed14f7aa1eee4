// The application's preferences as a value, and their table.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/MemberTable.h>
#include <qrtVistrelClasses4/OneBasedArray.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace QRT_PUBLIC qrtVistrelClasses4 {

inline constexpr std::int32_t kBrightnessSchedules = 4;

/// Part of a day at its own brightness. Times are texts of the form "6:30 PM".
struct PreferredSchedule {
    std::string BrightnessScheduleStartTime;
    std::string BrightnessScheduleStopTime;
    std::int16_t BrightnessScheduleBrightnessLevel{};

    bool operator==(const PreferredSchedule&) const = default;
};

/// Made without an allocation, so that an object with preferences can always be made.
using PreferredSchedules =
    OneBasedArray<PreferredSchedule, std::array<PreferredSchedule, kBrightnessSchedules>>;

/// The library itself uses only `BMPCrop` and `AVICrop`, and keeps all others for the application. The
/// application and the sign decide on the units of delays, speeds and adjustments, and on the range of
/// brightness and sensor levels. No value is checked, except as `PreferenceRule::neverZero` says.
/// Texts are 8-bit characters of the ANSI code page. A default-constructed value is empty.
/// `DefaultPreferences` returns what the application starts with.
struct Preferences {
    std::string LastGraphicFilePath; ///< Folder of pictures.
    std::int16_t DisplayHeight{};    ///< LED pixels.
    std::int16_t DisplayWidth{};     ///< LED pixels.
    double DelayMinimum{};           ///< Least delay that the frame editor offers.
    double DelayMaximum{};           ///< Greatest delay that it offers.
    double DelayStep{};              ///< Distance between the delays that it offers.
    bool WizardMode{};
    bool SwitchOperated{};
    std::string DisplayID; ///< Address of the sign.
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
    PreferredSchedules schedules;
    bool DoesDisplaySupportColor{};
    std::string LastPlayfilePath; ///< Folder of playfiles.
    bool SupportOldFirmware{};
    bool PlayAutoEnable{};
    bool ChooseDispGetInfo{};
    bool ChooseDispTransmit{};
    bool AVIFixedDelay{};
    std::int16_t AVIDelay{};
    std::int16_t DefaultDelay{};
    std::int16_t BroadcastTRDelay{};
    bool ShowImages{};
    bool AVICrop{}; ///< Animations of an older playfile are cropped.
    bool BMPCrop{}; ///< Bitmaps of an older playfile are cropped.

    bool operator==(const Preferences&) const = default;
};

/// What is special about a preference.
enum class PreferenceRule : std::uint8_t {
    none,
    graphicsFolder, ///< Its default is the folder for pictures.
    playfileFolder, ///< Its default is the folder for playfiles.
    neverZero,      ///< 0 is read as the default: it would leave the frame editor without a choice.
};

/// One preference: the name of its property, its key in the INI file, its member, and the text that a missing
/// key reads as.
template <class R, class Value>
struct PreferenceRow {
    using Record = R;
    std::string_view name;
    std::string_view key;
    Value Record::*member;
    std::string_view defaultText;
    PreferenceRule rule = PreferenceRule::none;
    Access access = Access::untraced;
};
template <class R, class Value>
PreferenceRow(std::string_view, std::string_view, Value R::*, std::string_view,
              PreferenceRule = PreferenceRule::none, Access = Access::untraced) -> PreferenceRow<R, Value>;

/// The preferences of one schedule, in file order. The number of the schedule is added to name and key.
inline constexpr std::tuple kPreferredScheduleMembers{
    PreferenceRow{"BrightnessScheduleStartTime", "ScheduledStartTime",
                  &PreferredSchedule::BrightnessScheduleStartTime, "12:00 AM", PreferenceRule::none,
                  Access::traced},
    PreferenceRow{"BrightnessScheduleStopTime", "ScheduledStopTime",
                  &PreferredSchedule::BrightnessScheduleStopTime, "12:00 AM", PreferenceRule::none,
                  Access::traced},
    PreferenceRow{"BrightnessScheduleBrightnessLevel", "ScheduledBrightnessLevel",
                  &PreferredSchedule::BrightnessScheduleBrightnessLevel, "5", PreferenceRule::none,
                  Access::traced},
};

/// All preferences, in file order.
inline constexpr std::tuple kPreferenceMembers{
    PreferenceRow{"LastGraphicFilePath", "LastGraphicPath", &Preferences::LastGraphicFilePath, "",
                  PreferenceRule::graphicsFolder},
    PreferenceRow{"DisplayHeight", "DisplayHeight", &Preferences::DisplayHeight, "64"},
    PreferenceRow{"DisplayWidth", "DisplayWidth", &Preferences::DisplayWidth, "128"},
    PreferenceRow{"DelayMinimum", "DelayMinimum", &Preferences::DelayMinimum, "0"},
    PreferenceRow{"DelayMaximum", "DelayMaximum", &Preferences::DelayMaximum, "10000",
                  PreferenceRule::neverZero},
    PreferenceRow{"DelayStep", "DelayStep", &Preferences::DelayStep, "500", PreferenceRule::neverZero},
    PreferenceRow{"WizardMode", "WizardMode", &Preferences::WizardMode, "False"},
    PreferenceRow{"SwitchOperated", "SwitchOperated", &Preferences::SwitchOperated, "False"},
    PreferenceRow{"DisplayID", "DisplayID", &Preferences::DisplayID, "1"},
    PreferenceRow{"ScrollPauseDelay", "ScrollPauseDelay", &Preferences::ScrollPauseDelay, "5"},
    PreferenceRow{"TemperatureProbeAdjust", "TemperatureProbeAdjustment",
                  &Preferences::TemperatureProbeAdjust, "0"},
    PreferenceRow{"TimeZoneAdjust", "TimeZoneAdjustment", &Preferences::TimeZoneAdjust, "0"},
    PreferenceRow{"ResetOnGetParameters", "ResetOnGetParameters", &Preferences::ResetOnGetParameters, "True"},
    PreferenceRow{"ScrollingTextSpeed", "ScrollingTextSpeed", &Preferences::ScrollingTextSpeed, "2"},
    PreferenceRow{"UseDaylightSavingsTime", "UseDaylightSavingsTime", &Preferences::UseDaylightSavingsTime,
                  "True"},
    PreferenceRow{"DisplayBrightnessLevel", "DisplayBrightnessLevel", &Preferences::DisplayBrightnessLevel,
                  "5"},
    PreferenceRow{"SensorLimitMinimum", "SensorLimitMinimum", &Preferences::SensorLimitMinimum, "3"},
    PreferenceRow{"SensorLimitMaximum", "SensorLimitMaximum", &Preferences::SensorLimitMaximum, "7"},
    PreferenceRow{"ScheduleDefaultBrightness", "ScheduleDefaultBrightness",
                  &Preferences::ScheduleDefaultBrightness, "5"},
    PreferenceRow{"", "", &Preferences::schedules,
                  ""}, // `kPreferredScheduleMembers`, for one schedule after the other
    // The key lacks its "t" in all existing files.
    PreferenceRow{"DoesDisplaySupportColor", "DoesDisplaySupporColor", &Preferences::DoesDisplaySupportColor,
                  "False"},
    PreferenceRow{"LastPlayfilePath", "LastPlayfilePath", &Preferences::LastPlayfilePath, "",
                  PreferenceRule::playfileFolder},
    PreferenceRow{"SupportOldFirmware", "SupportOldFirmware", &Preferences::SupportOldFirmware, "FALSE"},
    PreferenceRow{"PlayAutoEnable", "PlayAutoEnable", &Preferences::PlayAutoEnable, "TRUE"},
    PreferenceRow{"ChooseDispGetInfo", "ChooseDispGetInfo", &Preferences::ChooseDispGetInfo, "FALSE"},
    PreferenceRow{"ChooseDispTransmit", "ChooseDispTransmit", &Preferences::ChooseDispTransmit, "FALSE"},
    PreferenceRow{"AVIFixedDelay", "AVIFixedDelay", &Preferences::AVIFixedDelay, "FALSE"},
    PreferenceRow{"AVIDelay", "AVIDelay", &Preferences::AVIDelay, "50"},
    PreferenceRow{"DefaultDelay", "DefaultDelay", &Preferences::DefaultDelay, "3"},
    PreferenceRow{"BroadcastTRDelay", "BroadcastTRDelay", &Preferences::BroadcastTRDelay, "500"},
    PreferenceRow{"ShowImages", "ShowImage", &Preferences::ShowImages, "True"},
    PreferenceRow{"AVICrop", "AVICrop", &Preferences::AVICrop, "FALSE"},
    PreferenceRow{"BMPCrop", "BMPCrop", &Preferences::BMPCrop, "FALSE"},
};

template <class Record, class Value>
constexpr const auto& PreferenceTableOf(Value Record::*) {
    if constexpr (std::is_same_v<Record, PreferredSchedule>)
        return kPreferredScheduleMembers;
    else
        return kPreferenceMembers;
}

/// The row of a member, found while compiling.
template <auto member>
inline constexpr const auto&
    kPreferenceRow = std::get<RowIndex(PreferenceTableOf(member), member)>(PreferenceTableOf(member));
/// The type of a member's value.
template <auto member>
using PreferenceValue = ValueOfRow<std::remove_cvref_t<decltype(kPreferenceRow<member>)>>;

/// A preference's place in the file: its row, and for a preference of a schedule the schedule's number ("1"
/// to "4"), which is added to name and key.
template <class Row>
struct PlacedPreference {
    const Row& row;
    std::string_view number;

    std::string name() const { return std::string(row.name).append(number); }
    std::string key() const {
        std::string text;
        key(text);
        return text;
    }
    /// For many keys, which then need no memory of their own.
    void key(std::string& text) const { text.assign(row.key).append(number); }
};

/// Calls `visit(PlacedPreference, value...)` for each preference in file order, with its value in each of
/// `records`.
template <class Visit, class... Records>
void ForEachPreference(Visit&& visit, Records&... records) {
    ForEachRow(kPreferenceMembers, [&]<class Row>(const Row& row) {
        if constexpr (!std::is_same_v<ValueOfRow<Row>, PreferredSchedules>)
            visit(PlacedPreference<Row>{row, {}}, records.*row.member...);
        else
            for (std::int32_t number = 1; number <= kBrightnessSchedules; ++number) {
                const std::string digits = std::to_string(number);
                ForEachRow(kPreferredScheduleMembers, [&]<class Inner>(const Inner& inner) {
                    visit(PlacedPreference<Inner>{inner, digits},
                          (records.*row.member).at(number).*inner.member...);
                });
            }
    });
}

} // namespace qrtVistrelClasses4
