#include "platform/Folders.h"

#include "platform/Path.h"

namespace qrtVistrelClasses4 {
namespace {

/// Only what this machine takes for a separator. Empty if there is none.
std::string folderAbove(const std::string& path) {
    constexpr const char* separators = kPathSeparator == '\\' ? "\\/" : "/";
    const std::size_t endOfName = path.find_last_not_of(separators);
    const std::size_t separator =
        endOfName == path.npos ? path.npos : path.find_last_of(separators, endOfName);
    return separator == path.npos ? "" : path.substr(0, separator + 1);
}

} // namespace

SystemError MakeFoldersAbove(FileSystem& files, const std::string& path,
                             const std::function<SystemError(const std::string& folder)>& make) {
    constexpr std::size_t tooLong = 4096; // for any system
    if (path.size() >= tooLong)
        return SystemError::folderNotFound; // the system's answer, without trying each level
    const std::string folder = folderAbove(path);
    if (folder.empty() || files.kindOf(folder) == EntryKind::folder)
        return SystemError::none;
    if (const auto error = MakeFoldersAbove(files, folder, make); error != SystemError::none)
        return error;
    const SystemError error = make(folder);
    return error == SystemError::alreadyExists ? SystemError::none : error; // another process was faster
}

} // namespace qrtVistrelClasses4
