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

bool isFile(const std::string& reference) {
    FileSystem& files = platform().files();
    return IsRootedPath(reference) && files.kindOf(PathOnDisk(files, reference)) == EntryKind::file;
}

/// Throws if `error` is not `none`.
void checkCopy(FailureReport report, SystemError error) {
    if (error != SystemError::none)
        throw report == FailureReport::quiet ? ErrorFor(error).quietly() : ErrorFor(error);
}

} // namespace

bool FileExists(const std::string& sFileName, FoundFiles& found) {
    return traced(
        FrameFunction("FileExists"),
        [&] { return Remembered(found, sFileName, [&] { return isFile(sFileName); }); },
        Arg{"sFileName", sFileName});
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
