#include <qrtVistrelClasses4/CommandTableFile.h>

#include "commands/CommandFormat.h"
#include "commands/CommandTableSteps.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/KeptCopies.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/LibraryFiles.h"
#include "settings/RegistrySettings.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Where the table is.
constexpr RegistrySetting kTableFile{kVistrelLite, "Commands", "KeyByteFile"};

LibraryFile tableFile() { return {.name = "VistrelLite.dat", .subfolder = "db"}; }

/// Where the table is saved: over the existing file, unless that lies beside the program; else below the
/// library's folder. If that folder is a root, the name has one separator more than the name used for
/// loading. Existing settings hold it like that.
std::string pathToSave() {
    std::string path = CommandTablePath();
    if (platform().files().kindOf(path) != EntryKind::file || IsElsewhere(path, tableFile()))
        path = PlaceIn(LibraryFolder() + kPathSeparator, tableFile());
    return path;
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

/// Keeps a file that is not in the table; its copy, unless there is no such file.
std::optional<std::string> keepAside(FileSystem& files, const std::string& path) {
    auto kept = KeepAside(files, path, IfNotCopied::rename);
    if (kept.error() == SystemError::fileNotFound)
        return std::nullopt;
    return ValueOf(std::move(kept));
}

void writeFile(const CommandTable& table, const CommandTableSource& source, SavedCommandTable& saved) {
    if (table.count() < BuiltInCommandCount())
        throw RuntimeError(ErrorNumber::outOfMemory); // no row would be where reading looks for it
    FileSystem& files = platform().files();
    ReplacementFile file(files, saved.path);
    Check(file.error());
    BufferedText out(file);
    WriteCommandRows(out, table);
    out.finish();
    if (saved.path != source.path || source.isForeign) // only now, so that few failing saves leave a copy
        saved.keptAs = keepAside(files, saved.path);
    Check(file.commit());
}

} // namespace

std::string CommandTablePath() try {
    return platform().files().existingName(kTableFile.read(PlaceToRead(LibraryFolder(), tableFile())));
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

CommandTableOutcome LoadCommandTable(const std::string& path) try {
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
        writeFile(table, source, saved);
    } catch (const RuntimeError& error) {
        saved.error = error;
    }
    return saved;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
