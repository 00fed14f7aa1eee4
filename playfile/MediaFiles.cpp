#include "playfile/MediaFiles.h"

#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/FileNames.h"
#include "platform/FixedDrives.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/Remembered.h"
#include "playfile/FrameProcedures.h"
#include "settings/AppFolder.h"

namespace qrtVistrelClasses4 {
namespace {

EntryKind kindOf(const std::string& reference) {
    FileSystem& files = platform().files();
    return files.kindOf(PathOnDisk(files, reference));
}

/// Throws if `error` is not `none`.
void checkCopy(FailureReport report, SystemError error) {
    if (error != SystemError::none)
        throw report == FailureReport::quiet ? ErrorFor(error).quietly() : ErrorFor(error);
}

} // namespace

bool FoundFiles::has(const std::string& reference) {
    return Remembered(files_, reference, [&] { return isFile(reference); });
}

/// A drive that is gone may take seconds for each answer, so it is not asked about more files of a folder
/// that it lacks.
bool FoundFiles::isFile(const std::string& reference) {
    if (!IsRootedPath(reference))
        return false;
    const std::string folder(SplitPath(reference).folder);
    const auto known = folders_.find(folder);
    if (known != folders_.end() && !known->second)
        return false;
    const EntryKind kind = kindOf(reference);
    if (kind == EntryKind::missing && known == folders_.end())
        folders_.emplace(folder, kindOf(folder) != EntryKind::missing);
    return kind == EntryKind::file;
}

bool FileExists(const std::string& sFileName, FoundFiles& found) {
    return traced(
        FrameFunction("FileExists"), [&] { return found.has(sFileName); }, Arg{"sFileName", sFileName});
}

bool IsFixedDrive(const std::string& sFileName, FixedDrives& drives) {
    return traced(
        FrameFunction("IsFixedDrive"), [&] { return drives.hold(sFileName); }, Arg{"sFileName", sFileName});
}

std::optional<std::string> CopyToDataFolder(const std::string& sFileName, FailureReport report) {
    return traced(
        FrameFunction("CopyToDataFolder"),
        [&]() -> std::optional<std::string> {
            FileSystem& files = platform().files();
            const std::string folder = files.existingName(JoinPath(GetAppFolder(), "Data"));
            if (files.kindOf(folder) != EntryKind::folder)
                checkCopy(report, files.createFolder(folder));
            const std::string source = PathOnDisk(files, sFileName);
            const std::string copy = JoinPath(folder, SplitPath(source).name);
            checkCopy(report, files.copy(source, copy));
            return NameForPlayfile(copy);
        },
        Arg{"sFileName", sFileName});
}

} // namespace qrtVistrelClasses4
