// One folder in the place of the library's folder, the user's folders and the settings store.
#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// Names of the files that replace the registry, and the INI file of the system.
inline constexpr std::string_view kRegistryFile = "registry";
inline constexpr std::string_view kSystemProfile = "win.ini";

/// A folder of the user's that has a shell number.
struct UserFolder {
    int shellNumber;
    std::string_view variable; ///< What POSIX desktops call it.
    std::string_view usualName;
};

/// Null if users have no folder with that number.
const UserFolder* FindUserFolder(int shellNumber);

/// The full name of the folder, without separators at its end. No value if none is given.
std::optional<std::string> FullHome(FileSystem& files, const std::optional<std::string>& folder);

/// The folder for files that are installed together with a program or shared library in `folder`:
/// "share/vistrel" beside that folder, or beside "lib" for one like "lib/x86_64-linux-gnu".
std::string SharedFolder(const std::string& folder);

/// The library's own folders, which exist only once something is written in them. Until then, they are
/// treated as empty folders: a file in them is missing, and not its folder.
class OwnFolders {
public:
    OwnFolders() = default;
    explicit OwnFolders(std::vector<std::string> folders) : folders_(std::move(folders)) {}

    /// Whether `path` is in such a folder that does not exist yet.
    bool lackThatOf(FileSystem& files, const std::string& path) const;
    /// The meaning of `error`, the system's answer to a look at `path`.
    SystemError answer(FileSystem& files, const std::string& path, SystemError error) const;

private:
    std::vector<std::string> folders_;
};

} // namespace qrtVistrelClasses4
