#include "settings/SettingsInfoClass.h"

#include "frame/Traced.h"
#include "frame/modClassIDGenerator.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/clsSystemDirectory.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kFileName = "VistrelLite.ini";
constexpr std::string_view kSection = "VistrelLite";
constexpr std::size_t kSettingBufferSize = 255;

constexpr Procedure settingsProcedure(ProcedureKind kind, std::string_view name) {
    return {"SettingsInfoClass.cls", kind, name};
}

std::string iniPath() { return platform().files().existingName(JoinPath(GetAppFolder(), kFileName)); }

std::string graphicsFolder() { return JoinPath(LibraryFolder(), "Brivox Graphics"); }

/// Folder for playfiles in the user's documents; "" when the user has none.
std::string playfileFolder() {
    const std::string documents = clsSystemDirectory().FindSystemFolder(kDocumentsFolder);
    return documents.empty() ? "" : JoinPath(documents, "Vistrel Sign Playfiles");
}

/// A folder that cannot be made is only logged: the preferences are loaded all the same.
void makePlayfileFolder(const std::string& folder) {
    traced(
        settingsProcedure(ProcedureKind::Sub, "MakePlayfileFolder"),
        [&] {
            FileSystem& files = platform().files();
            if (folder.empty() || files.kindOf(folder) == EntryKind::folder)
                return;
            if (const SystemError error = files.createFolder(folder); error != SystemError::none)
                throw ErrorFor(error).quietly();
        },
        Arg{"Folder", folder});
}

void fromText(std::string& value, const std::string& text) { value = text; }
void fromText(bool& value, const std::string& text) { value = TextToBoolean(text); }
void fromText(double& value, const std::string& text) { value = LeadingNumber(text); }
void fromText(std::int16_t& value, const std::string& text) { value = RoundToInt16(LeadingNumber(text)); }

std::string toText(const std::string& value) { return value; }
std::string toText(bool value) { return std::string(BooleanToText(value)); }
std::string toText(double value) { return NumberToText(value); }
std::string toText(std::int16_t value) { return NumberToText(std::int32_t{value}); }

/// Sets every preference from the text that `textFor(key, default)` gives for it. `playfiles` is the default
/// of the folder for playfiles.
template <class TextFor>
void setAll(SettingsRecord& settings, const std::string& playfiles, TextFor textFor) {
    const std::string graphics = graphicsFolder();
    ForEachSetting(
        settings, [&](const std::string& key, auto& value, std::string_view defaultText, const auto&) {
            const void* const place = &value;
            const std::string defaultValue = place == &settings.LastGraphicFilePath ? graphics
                                             : place == &settings.LastPlayfilePath  ? playfiles
                                                                                   : std::string(defaultText);
            fromText(value, textFor(key, defaultValue));
            // A delay limit or step of 0 would leave the frame editor without a choice.
            if (place == &settings.DelayMaximum || place == &settings.DelayStep)
                if (value == std::remove_reference_t<decltype(value)>{})
                    fromText(value, defaultValue);
        });
}

} // namespace

SettingsInfoClass::SettingsInfoClass() {
    traced(settingsProcedure(ProcedureKind::Sub, "Class_Initialize"), [&] {
        classDebugID_ = GetNextClassDebugID();
        setAll(settings_, playfileFolder(),
               [](const std::string&, const std::string& defaultValue) { return defaultValue; });
    });
}

SettingsInfoClass::~SettingsInfoClass() {
    traced(settingsProcedure(ProcedureKind::Sub, "Class_Terminate"), [] {});
}

std::string SettingsInfoClass::GetPrivateSetting(const std::string& Key, const std::string& DefaultValue) {
    return readSetting(nullptr, Key, DefaultValue);
}

void SettingsInfoClass::WriteSetting(const std::string& Key, const std::string& Value) {
    writeSetting(nullptr, Key, Value);
}

std::string SettingsInfoClass::readSetting(ProfileFile* opened, const std::string& Key,
                                           const std::string& DefaultValue) {
    return traced(
        settingsProcedure(ProcedureKind::Function, "GetPrivateSetting"),
        [&] {
            const auto own = opened ? nullptr : platform().openProfile(iniPath());
            return (opened ? *opened : *own).read(kSection, Key, DefaultValue, kSettingBufferSize);
        },
        Arg{"Key", Key}, Arg{"DefaultValue", DefaultValue});
}

void SettingsInfoClass::writeSetting(ProfileFile* opened, const std::string& Key, const std::string& Value) {
    traced(
        settingsProcedure(ProcedureKind::Sub, "WriteSetting"),
        [&] {
            if (opened) {
                opened->write(kSection, Key, Value);
                return;
            }
            const auto own = platform().openProfile(iniPath());
            own->write(kSection, Key, Value);
            (void)own->commit(); // a preference that cannot be kept is no reason to interrupt the user
        },
        Arg{"Key", Key}, Arg{"Value", Value});
}

void SettingsInfoClass::GetSettingsFromDisk(const std::optional<std::string>& sFileName) {
    traced(
        settingsProcedure(ProcedureKind::Sub, "GetSettingsFromDisk"),
        [&] {
            const std::string playfiles = playfileFolder();
            makePlayfileFolder(playfiles);
            const auto profile = platform().openProfile(iniPath());
            setAll(settings_, playfiles, [&](const std::string& key, const std::string& defaultValue) {
                return readSetting(profile.get(), key, defaultValue);
            });
        },
        Arg{"sFileName", sFileName});
}

void SettingsInfoClass::SaveSettingsToDisk(const std::optional<std::string>& sFileName) {
    traced(
        settingsProcedure(ProcedureKind::Sub, "SaveSettingsToDisk"),
        [&] {
            const auto profile = platform().openProfile(iniPath());
            ForEachSetting(settings_, [&](const std::string& key, const auto& value, const auto&,
                                          const auto&) { writeSetting(profile.get(), key, toText(value)); });
            Check(profile->commit());
        },
        Arg{"sFileName", sFileName});
}

template <class Value>
Value SettingsInfoClass::readSchedule(std::string_view name, Value BrightnessScheduleSettings::*member) {
    return traced(settingsProcedure(ProcedureKind::PropertyGet, name),
                  [&] { return settings_.schedules.at(scheduleNumber_).*member; });
}

template <class Value>
void SettingsInfoClass::writeSchedule(std::string_view name, Value BrightnessScheduleSettings::*member,
                                      const Value& vData) {
    traced(
        settingsProcedure(ProcedureKind::PropertyLet, name),
        [&] { settings_.schedules.at(scheduleNumber_).*member = vData; }, Arg{"vData", vData});
}

std::string SettingsInfoClass::BrightnessScheduleStartTime() {
    return readSchedule("BrightnessScheduleStartTime",
                        &BrightnessScheduleSettings::BrightnessScheduleStartTime);
}
void SettingsInfoClass::BrightnessScheduleStartTime(const std::string& vData) {
    writeSchedule("BrightnessScheduleStartTime", &BrightnessScheduleSettings::BrightnessScheduleStartTime,
                  vData);
}
std::string SettingsInfoClass::BrightnessScheduleStopTime() {
    return readSchedule("BrightnessScheduleStopTime",
                        &BrightnessScheduleSettings::BrightnessScheduleStopTime);
}
void SettingsInfoClass::BrightnessScheduleStopTime(const std::string& vData) {
    writeSchedule("BrightnessScheduleStopTime", &BrightnessScheduleSettings::BrightnessScheduleStopTime,
                  vData);
}
std::int16_t SettingsInfoClass::BrightnessScheduleBrightnessLevel() {
    return readSchedule("BrightnessScheduleBrightnessLevel",
                        &BrightnessScheduleSettings::BrightnessScheduleBrightnessLevel);
}
void SettingsInfoClass::BrightnessScheduleBrightnessLevel(std::int16_t vData) {
    writeSchedule("BrightnessScheduleBrightnessLevel",
                  &BrightnessScheduleSettings::BrightnessScheduleBrightnessLevel, vData);
}

// Texts may need memory; the other accessors stand in the header.

std::string SettingsInfoClass::LastGraphicFilePath() const {
    return untraced([&] { return settings_.LastGraphicFilePath; });
}
void SettingsInfoClass::LastGraphicFilePath(const std::string& vData) {
    untraced([&] { settings_.LastGraphicFilePath = vData; });
}

std::string SettingsInfoClass::DisplayID() const {
    return untraced([&] { return settings_.DisplayID; });
}
void SettingsInfoClass::DisplayID(const std::string& vData) {
    untraced([&] { settings_.DisplayID = vData; });
}

std::string SettingsInfoClass::LastPlayfilePath() const {
    return untraced([&] { return settings_.LastPlayfilePath; });
}
void SettingsInfoClass::LastPlayfilePath(const std::string& vData) {
    untraced([&] { settings_.LastPlayfilePath = vData; });
}

} // namespace qrtVistrelClasses4
