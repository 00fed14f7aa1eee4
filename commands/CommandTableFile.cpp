#include <qrtVistrelClasses4/CommandTableFile.h>

#include "commands/CommandFormat.h"
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

/// Makes one level. If it cannot be made, opening the file fails.
void makeFolderOf(const std::string& path) {
    std::string folder(SplitPath(path).folder);
    if (folder.empty() || folder != WithTrailingSeparator(folder))
        return; // it ends in a drive's colon, or in a separator of another system
    folder.pop_back();
    (void)platform().files().createFolder(folder);
}

/// Keeps a file whose rows are not in the table. Never replaces a file that was kept before. A file that
/// cannot be read can still be renamed. Returns the new name.
std::string keep(FileSystem& files, const std::string& path) {
    Check(files.mayWrite(path));
    std::string backup = MakePlaceForBackup(files, path);
    if (files.kindOf(backup) != EntryKind::missing)
        throw RuntimeError(ErrorNumber::fileAlreadyExists);
    if (files.copy(path, backup) != SystemError::none)
        Check(files.moveOver(path, backup));
    return backup;
}

/// Copies a file that is no table to a new name, and returns that name; nothing if there is such a copy
/// already.
std::optional<std::string> keepForeign(FileSystem& files, const std::string& path) {
    const std::string first = path + std::string(kBackupEnding);
    std::string backup = first;
    const auto bytes = files.read(path);
    for (int number = 2; files.kindOf(backup) != EntryKind::missing; ++number) {
        if (bytes && files.read(backup).valueOr({}).text() == bytes.value().text())
            return std::nullopt;
        backup = first + std::to_string(number);
    }
    Check(files.removeLink(backup)); // a link to nothing: the copy would be made where it leads
    Check(files.copy(path, backup));
    return backup;
}

void readFile(const std::string& path, CommandTableOutcome& outcome) {
    const auto file = platform().files().read(path);
    outcome.isMissing =
        file.error() == SystemError::fileNotFound || file.error() == SystemError::folderNotFound;
    if (outcome.isMissing)
        return;
    Check(file.error());
    outcome.source.isForeign = !MayBeCommandTable(file.value().text());
    const bool isWhole = ReadCommandRows(file.value().text(), outcome.table);
    outcome.rowsRead = outcome.table.count() - BuiltInCommandCount();
    if (!isWhole)
        throw RuntimeError(ErrorNumber::overflow);
    outcome.source.path = path;
}

void writeFile(const CommandTable& table, const CommandTableSource& source, SavedCommandTable& saved) {
    if (table.count() < BuiltInCommandCount())
        throw RuntimeError(ErrorNumber::outOfMemory); // no row would be where reading looks for it
    FileSystem& files = platform().files();
    const bool isRead = saved.path == source.path;
    if (!isRead && files.kindOf(saved.path) != EntryKind::missing)
        saved.keptAs = keep(files, saved.path);
    ReplacementFile file(files, saved.path);
    Check(file.error());
    BufferedText out(file);
    WriteCommandRows(out, table);
    out.finish();
    if (isRead && source.isForeign)
        saved.keptAs =
            keepForeign(files, saved.path); // only now, so that failing saves do not each leave a copy
    Check(file.commit());
}

} // namespace

std::string CommandTablePath() try {
    return kTableFile.read(tableBelow(WithTrailingSeparator(LibraryFolder())));
} catch (...) {
    RethrowAsRuntimeError();
}

CommandTableOutcome LoadCommandTable(const std::string& path) try {
    CommandTableOutcome outcome;
    outcome.table = BuiltInCommands();
    makeFolderOf(path);
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
    makeFolderOf(saved.path);
    try {
        writeFile(table, source, saved);
    } catch (const RuntimeError& error) {
        saved.error = error;
    }
    return saved;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
