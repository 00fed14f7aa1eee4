#include "platform/Path.h"

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

bool IsRootedPath(std::string_view path) {
    return kHasDrives ? startsWithDrive(path) : path.starts_with(kPathSeparator);
}

} // namespace qrtVistrelClasses4
