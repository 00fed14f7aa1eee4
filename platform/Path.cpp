#include "platform/Path.h"

#include "platform/LetterCase.h"

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

/// The size of `path` up to the end of its next part, with the separator after it.
std::size_t endOfPart(std::string_view path, std::size_t start) {
    const std::size_t end = path.find_first_of("\\/", start);
    return end == path.npos ? path.size() : end + 1;
}

bool startsWithTwoSeparators(std::string_view path) {
    return kHasDrives && path.size() > 2 && endsFolder(path[0]) && endsFolder(path[1]);
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

std::size_t RootSize(std::string_view path) {
    constexpr std::string_view unlimited = R"(\\?\)", network = "UNC\\";
    std::size_t start = kHasDrives && path.starts_with(unlimited) ? unlimited.size() : 0;
    const bool isNetwork = start > 0 && EqualIgnoringAsciiCase(path.substr(start, network.size()), network);
    if (isNetwork || (start == 0 && startsWithTwoSeparators(path))) {
        start += isNetwork ? network.size() : 2;
        return endOfPart(path, endOfPart(path, start));
    }
    start += startsWithDrive(path.substr(start)) ? 2 : 0;
    return path.size() > start && endsFolder(path[start]) ? start + 1 : start;
}

std::string FolderOf(const std::string& path) {
    const std::size_t root = RootSize(path);
    std::size_t end = path.size();
    while (end > root && !endsFolder(path[end - 1]))
        --end;
    if (end == 0)
        return ".";
    return path.substr(0, std::max(root, end - (end > root ? 1 : 0)));
}

std::string WithoutTrailingSeparators(std::string_view folder) {
    const std::size_t root = RootSize(folder);
    while (folder.size() > root && endsFolder(folder.back()))
        folder.remove_suffix(1);
    return std::string(folder);
}

bool IsRootedPath(std::string_view path) {
    return kHasDrives ? startsWithDrive(path) : path.starts_with(kPathSeparator);
}

} // namespace qrtVistrelClasses4
