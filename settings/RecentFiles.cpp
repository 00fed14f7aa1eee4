#include <qrtVistrelClasses4/RecentFiles.h>

#include "frame/DelimitedValues.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/KeptCopies.h"
#include "platform/LetterCase.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/LibraryFiles.h"
#include "settings/RegistrySettings.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Where the list was written last.
constexpr RegistrySetting kListFile{kVistrelLite, kSettingsSection, "MRU"};

LibraryFile listFile() { return {.name = "VistrelLite.MRU"}; }

/// Where the list is saved.
std::string pathToSave() { return PlaceIn(LibraryFolder(), listFile()); }

void readEntries(std::string_view text, OneBasedArray<std::string>& entries) {
    DelimitedReader in(text);
    for (std::int32_t number = 1; !in.atEnd(); ++number) {
        entries.resize(number);
        in.get(entries.at(number));
    }
}

void writeEntries(const OneBasedArray<std::string>& entries, const std::string& path) {
    ReplacementFile file(platform().files(), path);
    Check(file.error());
    DelimitedWriter out(file);
    for (const std::string& entry : entries)
        out.put(entry);
    out.finish();
    Check(file.commit());
}

} // namespace

bool RecentFiles::remove(std::string_view name) {
    bool isFound = false;
    OneBasedArray<std::string> kept(entries.upperBound() + 1);
    std::int32_t last = 1;
    for (std::string& entry : entries) {
        if (entry.empty())
            continue;
        if (EqualIgnoringAnsiCase(entry, name))
            isFound = true;
        else
            kept.at(last++) = std::move(entry);
    }
    kept.resize(last);
    entries = std::move(kept);
    return isFound;
}

void RecentFiles::putFirst(const std::string& name) {
    const std::int32_t last = entries.upperBound() + 1;
    entries.resize(last);
    entries.at(last) = name;
    entries.move(last, 1);
}

std::optional<std::string> RecentFilesPath() try {
    const std::string usual = PlaceToRead(LibraryFolder(), listFile());
    std::optional<std::string> path = kListFile.find(usual);
    if (path && *path != usual) // nobody has looked for that on the disk yet
        path = platform().files().existingName(*path);
    return path;
} catch (...) {
    RethrowAsRuntimeError();
}

RecentFilesOutcome ReadRecentFiles(const std::string& path) try {
    RecentFilesOutcome outcome;
    outcome.files.entries.resize(1);
    const auto file = platform().files().read(path);
    if (!file) {
        outcome.error = ErrorFor(file.error());
        const bool isMissing = file.error() == SystemError::fileNotFound;
        if (isMissing)
            outcome.error = outcome.error->quietly();
        // If the default folder is missing for a while, the list in it must not be overwritten when it is
        // back.
        outcome.mayBeReplaced =
            isMissing || (file.error() == SystemError::folderNotFound && path != pathToSave());
        return outcome;
    }
    try {
        readEntries(file.value().text(), outcome.files.entries);
        outcome.mayBeReplaced = true;
    } catch (const RuntimeError& error) { // a damaged file, whose names are not all here
        outcome.error = error;
        outcome.isDamaged = true;
        outcome.mayBeReplaced = IsElsewhere(path, listFile()); // then it stays as it is
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

RecentFilesOutcome LoadRecentFiles(const std::string& path) try {
    RecentFilesOutcome outcome = ReadRecentFiles(path);
    if (outcome.isDamaged && !outcome.mayBeReplaced) {
        if (auto kept = KeepAside(platform().files(), path, IfNotCopied::fail))
            outcome.keptAs = std::move(kept).value();
        outcome.mayBeReplaced = outcome.keptAs.has_value();
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<RuntimeError> SaveRecentFiles(const RecentFiles& files) try {
    const std::string path = pathToSave();
    kListFile.write(path);
    try {
        writeEntries(files.entries, path);
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
