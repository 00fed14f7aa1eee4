// What settings and the list of recent files name.
#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/RegistryStore.h"
#include "settings/AppFolder.h"
#include "tools/doctor/Checks.h"
#include "tools/doctor/Wording.h"
#include "tools/program/Encoding.h"
#include <qrtVistrelClasses4/PreferencesFile.h>
#include <qrtVistrelClasses4/RecentFiles.h>

#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

bool isFullName(std::string_view text) {
    return text.size() > 1 && (IsPathSeparator(text.front()) || IsFullOnWindows(text));
}

bool leadsNowhere(const std::string& name) {
    FileSystem& files = platform().files();
    return files.kindOf(files.existingName(PathOnDisk(files, name))) == EntryKind::missing;
}

/// The values below a key of the settings that name something that is missing. The application data folder is
/// looked at elsewhere.
void checkKey(const std::string& path, int depth, DoctorFindings& findings) {
    RegistryStore& registry = platform().registry();
    const RegistryKey key{RegistryHive::localMachine, path};
    for (const std::string& name : registry.valueNames(key).valueOr({})) {
        const std::string text = registry.readString(key, name).valueOr({});
        if (!isFullName(text) || WithTrailingSeparator(text) == GetAppFolder() || !leadsNowhere(text))
            continue;
        const std::string place = SettingsPlace(path.substr(kSettingsKey.size() + 1));
        findings.push_back({.check = "setting.path",
                            .severity = Severity::warning,
                            .subject = VisibleAnsi(name),
                            .message = VisibleName(text) + " does not exist",
                            .advice = "put the file there, or correct the setting in " + VisibleName(place),
                            .path = text});
    }
    if (depth > 0)
        for (const std::string& below : registry.subkeys(key).valueOr({}))
            checkKey(std::string(path).append("\\").append(below), depth - 1, findings);
}

/// The folders that preferences name. Their defaults need not exist.
void checkFoldersOfPreferences(const AdvisedCommands& commands, DoctorFindings& findings) {
    const std::optional<std::string> path = PreferencesPath();
    const PreferenceFolders folders = FindPreferenceFolders();
    const Preferences defaults = DefaultPreferences(folders);
    const Preferences values = path ? LoadPreferences({*path, folders, defaults}).values : defaults;
    const auto check = [&]<class Value>(const auto& placed, const Value& value, const Value& usual) {
        if constexpr (std::is_same_v<Value, std::string>)
            if ((placed.row.rule == PreferenceRule::graphicsFolder ||
                 placed.row.rule == PreferenceRule::playfileFolder) &&
                value != usual && !value.empty() && leadsNowhere(value))
                findings.push_back({.check = "setting.path",
                                    .severity = Severity::warning,
                                    .subject = placed.name(),
                                    .message = VisibleName(value) + " does not exist",
                                    .advice = "make the folder, or " + commands.reset(placed.name()),
                                    .path = value});
    };
    ForEachPreference(check, values, defaults);
}

void checkRecentNames(const AdvisedCommands& commands, DoctorFindings& findings) {
    const std::optional<std::string> path = RecentFilesPath();
    if (!path)
        return;
    for (const std::string& name : ReadRecentFiles(*path).files.entries)
        if (!name.empty() && leadsNowhere(name)) {
            const std::string shown = Utf8FromName(name);
            const std::string command =
                commands.text(shown.front() == '-' ? "recent remove --" : "recent remove", shown);
            findings.push_back({.check = "recent.file",
                                .severity = Severity::note,
                                .subject = "recent file",
                                .message = VisibleName(name) + " does not exist",
                                .advice = command.empty() ? "remove it from the list" : command,
                                .path = name});
        }
}

} // namespace

void CheckNamedFiles(const AdvisedCommands& commands, DoctorFindings& findings) {
    constexpr int depthOfSections = 3; // an application, its section, and one more
    checkKey(std::string(kSettingsKey), depthOfSections, findings);
    checkFoldersOfPreferences(commands, findings);
    checkRecentNames(commands, findings);
}

} // namespace qrtVistrelClasses4
