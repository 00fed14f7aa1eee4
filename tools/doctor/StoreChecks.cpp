// The files of the library, opened by the library's own functions.
#include "frame/Conversions.h"
#include "frame/SystemErrors.h"
#include "platform/IniText.h"
#include "platform/KeptCopies.h"
#include "platform/Path.h"
#include "platform/RegistryTree.h"
#include "platform/TemporaryName.h"
#include "playfile/Effects.h"
#include "settings/AppFolder.h"
#include "settings/ErrorLog.h"
#include "settings/LibraryFiles.h"
#include "tools/doctor/Checks.h"
#include "tools/doctor/Wording.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/signs/SignsFile.h"
#include <qrtVistrelClasses4/CommandTableFile.h>
#include <qrtVistrelClasses4/PreferencesFile.h>
#include <qrtVistrelClasses4/RecentFiles.h>

#include <algorithm>
#include <set>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

DoctorFinding findingAbout(std::string_view check, std::string subject, const std::string& path) {
    return {.check = check, .subject = std::move(subject), .message = VisibleName(path), .path = path};
}

bool hasFile(const std::string& path) { return platform().files().kindOf(path) == EntryKind::file; }

/// Whether `path` is below one of the folders that are only read.
bool isElsewhere(const std::string& path) {
    return std::ranges::any_of(platform().otherFolders(FileUse::onlyRead), [&](const std::string& folder) {
        return path.starts_with(WithTrailingSeparator(folder));
    });
}

void setMissing(DoctorFinding& finding, std::string_view instead) {
    finding.message += ": there is none yet; " + std::string(instead);
}

/// `whatItHas` is "4 signs".
void setWhole(DoctorFinding& finding, const std::string& whatItHas) {
    finding.message += ": " + whatItHas;
    if (isElsewhere(finding.path))
        finding.message += "; it is installed with the program, and read until the user has one";
}

void setDamaged(DoctorFinding& finding, const std::string& fault) {
    finding.severity = Severity::error;
    finding.message += ": " + fault;
    if (!hasFile(finding.path)) { // something else is in its place
        finding.advice = "move it away";
        return;
    }
    const std::string copy = finding.path + std::string(kBackupEnding);
    finding.advice = hasFile(copy) ? "copy " + VisibleName(copy) + " over it, if that is whole"
                                   : "put a whole copy in its place, or move it away to start a new one";
}

/// True if the file cannot even be read, which `finding` then says.
bool isUnreadable(DoctorFinding& finding) {
    if (!platform().files().hasEntry(finding.path))
        return false;
    const auto file = platform().files().read(finding.path);
    if (file)
        return false;
    setDamaged(finding, FaultOf(finding.path, ErrorFor(file.error())).clause());
    if (hasFile(finding.path))
        finding.advice = "give this user the right to read it";
    return true;
}

void setDamagedLines(DoctorFinding& finding, const std::vector<std::string>& damaged) {
    constexpr std::size_t mostShown = 80; // a file that is no text may have a line of any length
    const std::string& first = damaged.front();
    setDamaged(finding, Counted(damaged.size(), "line") + " not understood, the first is \"" +
                            VisibleName(first.substr(0, mostShown)) +
                            (first.size() > mostShown ? "\" ..." : "\""));
    finding.advice = "correct these lines, or delete them";
}

DoctorFinding checkSettings() {
    const std::string file = platform().registry().file();
    if (file.empty()) {
        DoctorFinding finding{.check = "store.settings",
                              .subject = "settings",
                              .message = "HKEY_LOCAL_MACHINE\\" + std::string(kSettingsKey)};
        if (!platform().registry().keyExists({RegistryHive::localMachine, std::string(kSettingsKey)}))
            setMissing(finding, "every setting has its default");
        return finding;
    }
    DoctorFinding finding = findingAbout("store.settings", "settings", file);
    if (isUnreadable(finding))
        return finding;
    if (!hasFile(file)) {
        setMissing(finding, "every setting has its default");
        return finding;
    }
    const FileBytes bytes = platform().files().read(file).valueOr({});
    const std::vector<std::string> damaged = RegistryTree(bytes.text()).damagedLines();
    if (damaged.empty()) {
        setWhole(finding, "whole");
        return finding;
    }
    setDamagedLines(finding, damaged);
    return finding;
}

/// The preferences whose values are not what belongs there. `about` is the start of each finding.
void checkValues(const std::string& path, const DoctorFinding& about, const AdvisedCommands& commands,
                 DoctorFindings& findings) {
    const PreferenceFolders folders = FindPreferenceFolders();
    const PreferencesOutcome loaded = LoadPreferences({path, folders, DefaultPreferences(folders)});
    const auto add = [&](Severity severity, const std::string& key, const std::string& fault) {
        findings.push_back(about);
        DoctorFinding& finding = findings.back();
        finding.severity = severity;
        finding.message += ": key " + key + ": " + fault;
        finding.advice = commands.reset(key);
    };
    for (const PreferenceError& error : loaded.errors)
        add(Severity::error, error.key, TextOf(error.error));
    const auto check = [&]<class Value>(const auto& placed, const Value& value) {
        if constexpr (std::is_same_v<Value, double> || std::is_same_v<Value, std::int16_t>) {
            const std::string key = placed.key(), text = ReadPreference(path, key, {});
            if (!WithoutBlanks(text).empty() &&
                std::ranges::find(loaded.errors, key, &PreferenceError::key) == loaded.errors.end() &&
                !ParseNumber(text))
                add(Severity::warning, key,
                    "\"" + VisibleAnsi(text) + "\" is not a number; " + PreferenceText(value) + " is used");
        }
    };
    ForEachPreference(check, loaded.values);
}

void checkPreferences(const AdvisedCommands& commands, DoctorFindings& findings) {
    const std::optional<std::string> path = PreferencesPath();
    if (!path)
        return; // the reason has been reported
    const auto [folder, name] = SplitPath(*path);
    DoctorFinding finding = findingAbout("store.preferences", "preferences",
                                         PlaceToRead(std::string(folder), {.name = std::string(name)}));
    if (isUnreadable(finding))
        return findings.push_back(std::move(finding));
    if (!hasFile(finding.path)) {
        setMissing(finding, "every preference has its default");
        return findings.push_back(std::move(finding));
    }
    const std::size_t before = findings.size();
    const FileBytes bytes = platform().files().read(finding.path).valueOr({});
    if (const std::vector<std::string> damaged = DamagedIniLines(bytes.text()); !damaged.empty()) {
        findings.push_back(finding);
        setDamagedLines(findings.back(), damaged);
    }
    checkValues(*path, finding, commands, findings);
    if (findings.size() == before) {
        setWhole(finding, "whole");
        findings.push_back(std::move(finding));
    }
}

DoctorFinding checkEffects() {
    DoctorFinding finding = findingAbout("store.effects", "optional effects", NewEffectsPath());
    if (isUnreadable(finding))
        return finding;
    if (hasFile(finding.path))
        setWhole(finding, "lists of effects offer what it does not switch off");
    else
        setMissing(finding, "lists do not offer these effects");
    return finding;
}

std::optional<DoctorFinding> checkSigns(ErrorLines& errors) {
    const std::optional<SignsFile> file = LoadSigns(errors);
    if (!file)
        return std::nullopt; // the reason has been reported
    DoctorFinding finding = findingAbout("store.signs", "list of signs", file->path);
    const std::vector<FileFault> faults = FaultsOf(*file);
    std::string text;
    for (const FileFault& fault : faults)
        text += (text.empty() ? "" : "; ") + fault.clause();
    if (!faults.empty())
        setDamaged(finding, text);
    else if (file->isMissing())
        setMissing(finding, "there are no signs");
    else
        setWhole(finding, Counted(file->list.count(), "sign"));
    return finding;
}

std::optional<DoctorFinding> checkRecentFiles() {
    const std::optional<std::string> path = RecentFilesPath();
    if (!path)
        return std::nullopt; // the reason has been reported
    DoctorFinding finding = findingAbout("store.recent", "recent files", *path);
    const RecentFilesOutcome list = ReadRecentFiles(*path);
    if (list.error && list.error->isQuiet())
        setMissing(finding, "no file was opened yet");
    else if (list.error)
        setDamaged(finding, FaultOf(*path, *list.error).clause());
    else
        setWhole(finding, Counted(std::ranges::count_if(list.files.entries,
                                                        [](const auto& name) { return !name.empty(); }),
                                  "name"));
    return finding;
}

DoctorFinding checkCommands() {
    DoctorFinding finding = findingAbout("store.commands", "command table", CommandTablePath());
    const CommandTableOutcome loaded = LoadCommandTable(finding.path);
    if (loaded.error)
        setDamaged(finding, FaultOf(finding.path, *loaded.error).clause());
    else if (loaded.isMissing)
        setMissing(finding, "the built-in commands are used");
    else if (loaded.source.isForeign)
        setDamaged(finding, "it was not written as a command table");
    else
        setWhole(finding, Counted(loaded.table.count(), "command"));
    return finding;
}

std::optional<DoctorFinding> checkLog(std::string_view name) {
    DoctorFinding finding = findingAbout("store.log", "error log", JoinPath(ErrorLogFolder(), name));
    const auto size = platform().files().sizeOf(finding.path);
    if (!size || size.value() == 0)
        return std::nullopt;
    finding.severity = Severity::note;
    finding.message += ": " + Counted(size.value(), "byte");
    finding.advice = "look at its end for the errors that happened last";
    return finding;
}

/// Copies and temporary files beside the files that were looked at.
void checkLeftovers(DoctorFindings& findings) {
    std::set<std::string> folders, files;
    for (const DoctorFinding& finding : findings)
        if (finding.check.starts_with("store.") && !finding.path.empty())
            files.insert(finding.path);
    for (const std::string& file : files)
        folders.emplace(SplitPath(file).folder);
    for (const std::string& folder : folders) {
        std::vector<std::string> names = platform().files().namesIn(folder);
        std::ranges::sort(names);
        for (const std::string& name : names) {
            DoctorFinding finding = findingAbout("store.copy", "kept copy", folder + name);
            finding.severity = Severity::note;
            if (IsTemporaryName(name)) {
                finding.check = "store.leftover", finding.subject = "temporary file";
                finding.message += " is left of a save that was interrupted, unless a program is saving now";
                finding.advice = "remove it when no program is saving";
            } else if (std::ranges::none_of(files, [&](const std::string& file) {
                           const auto [place, original] = SplitPath(file);
                           return place == folder && IsNameOfCopy(name, original);
                       })) {
                continue;
            }
            findings.push_back(std::move(finding));
        }
    }
}

} // namespace

void CheckStores(const AdvisedCommands& commands, DoctorFindings& findings, ErrorLines& errors) {
    findings.push_back(checkSettings());
    checkPreferences(commands, findings);
    for (std::optional<DoctorFinding>& finding : std::vector<std::optional<DoctorFinding>>{
             checkEffects(), checkSigns(errors), checkRecentFiles(), checkCommands(), checkLog(kErrorLogName),
             checkLog(kOldErrorLogName)})
        if (finding)
            findings.push_back(*std::move(finding));
    checkLeftovers(findings);
}

} // namespace qrtVistrelClasses4
