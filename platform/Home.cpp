#include "platform/Home.h"

#include "platform/Path.h"
#include "platform/Platform.h"

#include <algorithm>
#include <array>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array<UserFolder, 6> kUserFolders{{
    {0, "XDG_DESKTOP_DIR", "Desktop"},
    {kDocumentsFolder, "XDG_DOCUMENTS_DIR", "Documents"},
    {13, "XDG_MUSIC_DIR", "Music"},
    {14, "XDG_VIDEOS_DIR", "Videos"},
    {16, "XDG_DESKTOP_DIR", "Desktop"},
    {39, "XDG_PICTURES_DIR", "Pictures"},
}};

} // namespace

const UserFolder* FindUserFolder(int shellNumber) {
    const auto* folder = std::ranges::find(kUserFolders, shellNumber, &UserFolder::shellNumber);
    return folder == kUserFolders.end() ? nullptr : folder;
}

std::optional<std::string> FullHome(FileSystem& files, const std::optional<std::string>& folder) {
    return folder ? std::optional(WithoutTrailingSeparators(files.fullName(*folder))) : std::nullopt;
}

std::string SharedFolder(const std::string& folder) {
    const std::string above = FolderOf(folder);
    // "lib/x86_64-linux-gnu": the libraries of one architecture. The names of these have hyphens.
    const bool isForOneArchitecture =
        above.ends_with("/lib") && folder.find('-', above.size()) != std::string::npos;
    return JoinPath(JoinPath(isForOneArchitecture ? FolderOf(above) : above, "share"), "vistrel");
}

bool OwnFolders::lackThatOf(FileSystem& files, const std::string& path) const {
    const std::string folder = FolderOf(path);
    return path.find('\0') == path.npos && std::ranges::find(folders_, folder) != folders_.end() &&
           files.kindOf(folder) == EntryKind::missing;
}

SystemError OwnFolders::answer(FileSystem& files, const std::string& path, SystemError error) const {
    return error == SystemError::folderNotFound && lackThatOf(files, path) ? SystemError::fileNotFound
                                                                           : error;
}

} // namespace qrtVistrelClasses4
