#include "playfile/MediaFiles.h"

#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/FrameProcedures.h"
#include "settings/AppFolder.h"

namespace qrtVistrelClasses4 {

bool FileExists(const std::string& sFileName) {
    return traced(
        FrameFunction("FileExists"),
        [&] { return IsRootedPath(sFileName) && platform().files().kindOf(sFileName) == EntryKind::file; },
        Arg{"sFileName", sFileName});
}

bool IsFixedDrive(const std::string& sFileName) {
    return traced(
        FrameFunction("IsFixedDrive"), [&] { return platform().files().isFixedDrive(sFileName); },
        Arg{"sFileName", sFileName});
}

std::optional<std::string> CopyToDataFolder(const std::string& sFileName) {
    return traced(
        FrameFunction("CopyToDataFolder"),
        [&]() -> std::optional<std::string> {
            FileSystem& files = platform().files();
            const std::string folder = files.existingName(JoinPath(GetAppFolder(), "Data"));
            if (files.kindOf(folder) != EntryKind::folder)
                Check(files.createFolder(folder));
            std::string copy = JoinPath(folder, SplitPath(sFileName).name);
            Check(files.copy(sFileName, copy));
            return copy;
        },
        Arg{"sFileName", sFileName});
}

} // namespace qrtVistrelClasses4
