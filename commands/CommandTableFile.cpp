#include <qrtVistrelClasses4/CommandTableFile.h>

#include "commands/CommandFormat.h"
#include "commands/CommandTableSteps.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {
namespace {

/// Where the table is.
constexpr RegistrySetting kTableFile{kVistrelLite, "Commands", "KeyByteFile"};

/// The table's place below `folder`, which ends in a separator.
std::string tableBelow(const std::string& folder) {
    return folder + "db" + kPathSeparator + "VistrelLite.dat";
}

/// Where the table is saved: over the existing file, else below the library's folder. If that folder is a
/// root, the name has one separator more than the name used for loading. Existing settings hold it like that.
std::string pathToSave() {
    std::string path = CommandTablePath();
    if (platform().files().kindOf(path) != EntryKind::file)
        path = tableBelow(LibraryFolder() + kPathSeparator);
    return path;
}

/// Keeps a file whose rows are not in the table. Never replaces a file that was kept before. A file that
/// cannot be read can still be renamed.
void keep(FileSystem& files, const std::string& path) {
    Check(files.mayWrite(path));
    const std::string backup = MakePlaceForBackup(files, path);
    if (files.kindOf(backup) != EntryKind::missing)
        throw RuntimeError(ErrorNumber::fileAlreadyExists);
    if (files.copy(path, backup) != SystemError::none)
        Check(files.moveOver(path, backup));
}

/// Copies a file that is no table to a new name, unless there is such a copy already.
void keepForeign(FileSystem& files, const std::string& path) {
    const std::string first = path + std::string(kBackupEnding);
    std::string backup = first;
    const auto bytes = files.read(path);
    for (int number = 2; files.kindOf(backup) != EntryKind::missing; ++number) {
        if (bytes && files.read(backup).valueOr({}).text() == bytes.value().text())
            return;
        backup = first + std::to_string(number);
    }
    Check(files.removeLink(backup)); // a link to nothing: the copy would be made where it leads
    Check(files.copy(path, backup));
}

void readFile(const std::string& path, CommandTableOutcome& outcome) {
    const auto file = platform().files().read(path);
    outcome.isMissing =
        file.error() == SystemError::fileNotFound || file.error() == SystemError::folderNotFound;
    if (outcome.isMissing)
        return;
    Check(file.error());
    outcome.source.isForeign = !MayBeCommandTable(file.value().text());
    if (!ReadCommandRows(file.value().text(), outcome.table))
        throw RuntimeError(ErrorNumber::overflow);
    outcome.source.path = path;
}

void writeFile(const CommandTable& table, const CommandTableSource& source, const std::string& path) {
    if (table.count() < BuiltInCommandCount())
        throw RuntimeError(ErrorNumber::outOfMemory); // no row would be where reading looks for it
    FileSystem& files = platform().files();
    const bool isRead = path == source.path;
    if (!isRead && files.kindOf(path) != EntryKind::missing)
        keep(files, path);
    ReplacementFile file(files, path);
    Check(file.error());
    BufferedText out(file);
    WriteCommandRows(out, table);
    out.finish();
    if (isRead && source.isForeign)
        keepForeign(files, path); // only now, so that failing saves do not each leave a copy
    Check(file.commit());
}

} // namespace

std::string CommandTablePath() try {
    return kTableFile.read(tableBelow(WithTrailingSeparator(LibraryFolder())));
} catch (...) {
    RethrowAsRuntimeError();
}

void MakeFolderOfCommandTable(const std::string& path) try {
    std::string folder(SplitPath(path).folder);
    if (folder.empty() || folder != WithTrailingSeparator(folder))
        return; // it ends in a drive's colon, or in a separator of another system
    folder.pop_back();
    (void)platform().files().createFolder(folder);
} catch (...) {
    RethrowAsRuntimeError();
}

CommandTableOutcome LoadCommandTable(const std::string& path) {
    MakeFolderOfCommandTable(path);
    return ReadCommandTable(path);
}

CommandTableOutcome ReadCommandTable(const std::string& path) try {
    CommandTableOutcome outcome;
    outcome.table = BuiltInCommands();
    try {
        readFile(path, outcome);
    } catch (const RuntimeError& error) {
        outcome.error = error;
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

SavedCommandTable SaveCommandTable(const CommandTable& table, const CommandTableSource& source) try {
    SavedCommandTable saved;
    saved.path = pathToSave();
    kTableFile.write(saved.path);
    MakeFolderOfCommandTable(saved.path);
    try {
        writeFile(table, source, saved.path);
    } catch (const RuntimeError& error) {
        saved.error = error;
    }
    return saved;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
