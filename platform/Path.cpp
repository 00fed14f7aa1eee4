#include "platform/Path.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

#ifdef _WIN32
constexpr bool kHasDrives = true;
#else
constexpr bool kHasDrives = false;
#endif

bool startsWithDrive(std::string_view path) { return kHasDrives && path.size() >= 2 && path[1] == ':'; }

/// Whether this machine's own calls take `character` for a separator.
bool endsFolder(char character) { return character == kPathSeparator || (kHasDrives && character == '/'); }

/// The size of what no folder lies above: "/", and on Windows also "C:\\" and "C:".
std::size_t rootSize(std::string_view path) {
    const std::size_t drive = startsWithDrive(path) ? 2 : 0;
    return path.size() > drive && endsFolder(path[drive]) ? drive + 1 : drive;
}

} // namespace

std::string WithTrailingSeparator(std::string_view folder) {
    std::string result(folder);
    if (!result.empty() && !endsFolder(result.back()))
        result += kPathSeparator;
    return result;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    const bool isDriveOnly = folder.size() == 2 && startsWithDrive(folder);
    std::string result = isDriveOnly ? std::string(folder) : WithTrailingSeparator(folder);
    result += name;
    return result;
}

SplitPathResult SplitPath(std::string_view path) {
    const std::size_t folderStart = startsWithDrive(path) ? 2 : 0;
    std::size_t nameStart = path.size();
    while (nameStart > folderStart && !IsPathSeparator(path[nameStart - 1]))
        --nameStart;
    return {path.substr(0, nameStart), path.substr(nameStart)};
}

std::string FolderOf(const std::string& path) {
    const std::size_t root = rootSize(path);
    std::size_t end = path.size();
    while (end > root && !endsFolder(path[end - 1]))
        --end;
    if (end == 0)
        return ".";
    return path.substr(0, std::max(root, end - (end > root ? 1 : 0)));
}

std::string WithoutTrailingSeparators(std::string_view folder) {
    const std::size_t root = rootSize(folder);
    while (folder.size() > root && endsFolder(folder.back()))
        folder.remove_suffix(1);
    return std::string(folder);
}

bool IsRootedPath(std::string_view path) {
    return kHasDrives ? startsWithDrive(path) : path.starts_with(kPathSeparator);
}

} // namespace qrtVistrelClasses4
