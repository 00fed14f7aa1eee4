#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "frame/modClassIDGenerator.h"
#include "settings/PreferenceProfile.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure procedure(ProcedureKind kind, std::string_view name) {
    return {"SettingsInfoClass.cls", kind, name};
}
constexpr Procedure kGetPrivateSetting = procedure(ProcedureKind::Function, "GetPrivateSetting");
constexpr Procedure kWriteSetting = procedure(ProcedureKind::Sub, "WriteSetting");

/// Shows each key on the trace.
class TracedProfile final : public ProfileFile {
public:
    explicit TracedProfile(std::unique_ptr<ProfileFile> file) : file_(std::move(file)) {}

    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t bufferSize) override {
        return traced(
            kGetPrivateSetting, [&] { return file_->read(section, key, defaultValue, bufferSize); },
            Arg{"Key", std::as_const(key)}, Arg{"DefaultValue", std::as_const(defaultValue)});
    }
    void write(std::string_view section, std::string_view key, std::string_view value) override {
        traced(
            kWriteSetting, [&] { file_->write(section, key, value); }, Arg{"Key", std::as_const(key)},
            Arg{"Value", std::as_const(value)});
    }
    void remove(std::string_view section, std::string_view key) override { file_->remove(section, key); }
    SystemError commit() override { return file_->commit(); }

private:
    std::unique_ptr<ProfileFile> file_;
};

/// A folder that cannot be made is only logged: the preferences are loaded all the same.
void makePlayfileFolder(const PreferenceFolders& folders) {
    const std::string folder = folders.playfiles.value_or("");
    traced(
        procedure(ProcedureKind::Sub, "MakePlayfileFolder"),
        [&] {
            if (const std::optional<RuntimeError> error = MakePlayfileFolder(folders))
                throw error->quietly();
        },
        Arg{"Folder", folder});
}

/// The record that holds a member: the preferences themselves, or the schedule of that number.
template <class Record, class Whole>
auto& recordOf(Whole& preferences, std::int16_t scheduleNumber) {
    if constexpr (std::is_same_v<Record, PreferredSchedule>)
        return preferences.schedules.at(scheduleNumber);
    else
        return preferences;
}

} // namespace

SettingsInfoClass::SettingsInfoClass() {
    traced({lastError_, procedure(ProcedureKind::Sub, "Class_Initialize")}, [&] {
        classDebugID_ = GetNextClassDebugID();
        preferences_ = DefaultPreferences(FindPreferenceFolders());
    });
}

SettingsInfoClass::~SettingsInfoClass() {
    traced({lastError_, procedure(ProcedureKind::Sub, "Class_Terminate")}, [] {});
}

std::string SettingsInfoClass::GetPrivateSetting(const std::string& Key,
                                                 const std::string& DefaultValue) const {
    return traced(
        {lastError_, kGetPrivateSetting},
        [&] {
            const std::optional<std::string> path = PreferencesName();
            return path ? ReadPreference(*path, Key, DefaultValue) : DefaultValue;
        },
        Arg{"Key", Key}, Arg{"DefaultValue", DefaultValue});
}

void SettingsInfoClass::WriteSetting(const std::string& Key, const std::string& Value) {
    traced(
        {lastError_, kWriteSetting},
        [&] {
            const std::optional<std::string> path = PreferencesName();
            if (const auto error = path ? WritePreference(*path, Key, Value).error : std::nullopt) {
                NoteError(*error); // a preference that cannot be kept is no reason to interrupt the user
                ReportQuietly(*error);
            }
        },
        Arg{"Key", Key}, Arg{"Value", Value});
}

void SettingsInfoClass::GetSettingsFromDisk(const std::optional<std::string>& sFileName) {
    traced(
        {lastError_, procedure(ProcedureKind::Sub, "GetSettingsFromDisk")},
        [&] {
            const PreferenceFolders folders = FindPreferenceFolders();
            makePlayfileFolder(folders);
            const std::optional<std::string> path = PreferencesName();
            if (!path)
                return;
            TracedProfile file(OpenPreferences(*path));
            PreferencesOutcome outcome = ReadPreferences(file, folders, preferences_);
            preferences_ = std::move(outcome.values);
            Check(outcome.error());
        },
        Arg{"sFileName", sFileName});
}

void SettingsInfoClass::SaveSettingsToDisk(const std::optional<std::string>& sFileName) {
    traced(
        {lastError_, procedure(ProcedureKind::Sub, "SaveSettingsToDisk")},
        [&] {
            const std::optional<std::string> path = PreferencesName();
            if (!path)
                return;
            TracedProfile file(OpenPreferences(*path));
            Check(WritePreferences(file, preferences_));
        },
        Arg{"sFileName", sFileName});
}

template <class Record, class T>
T SettingsInfoClass::readMember(Access access, std::string_view name, T Record::*member) const {
    const auto body = [&] { return recordOf<Record>(preferences_, scheduleNumber_).*member; };
    return access == Access::traced
               ? tracedProperty({lastError_, procedure(ProcedureKind::PropertyGet, name)}, body)
               : untraced(lastError_, body);
}

template <class Record, class T>
void SettingsInfoClass::writeMember(Access access, std::string_view name, T Record::*member, const T& vData) {
    const auto body = [&] { recordOf<Record>(preferences_, scheduleNumber_).*member = vData; };
    if (access == Access::traced)
        tracedProperty({lastError_, procedure(ProcedureKind::PropertyLet, name)}, body, Arg{"vData", vData});
    else
        untraced(lastError_, body);
}

#define QRT_ACCESSORS(Record, T)                                                                             \
    template T SettingsInfoClass::readMember(Access, std::string_view, T Record::*) const;                   \
    template void SettingsInfoClass::writeMember(Access, std::string_view, T Record::*, const T&)
QRT_ACCESSORS(Preferences, std::string);
QRT_ACCESSORS(Preferences, std::int16_t);
QRT_ACCESSORS(Preferences, double);
QRT_ACCESSORS(Preferences, bool);
QRT_ACCESSORS(PreferredSchedule, std::string);
QRT_ACCESSORS(PreferredSchedule, std::int16_t);
#undef QRT_ACCESSORS

} // namespace qrtVistrelClasses4
