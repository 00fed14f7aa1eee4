#include "platform/Path.h"

namespace qrtVistrelClasses4 {

std::string WithTrailingSeparator(std::string_view folder) {
    std::string result(folder);
    if (!result.empty() && !IsPathSeparator(result.back()))
        result += kPathSeparator;
    return result;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string result = WithTrailingSeparator(folder);
    result += name;
    return result;
}

SplitPathResult SplitPath(std::string_view path) {
    std::size_t nameStart = path.size();
    while (nameStart > 0 && !IsPathSeparator(path[nameStart - 1]))
        --nameStart;
    return {path.substr(0, nameStart), path.substr(nameStart)};
}

bool IsRootedPath(std::string_view path) {
#ifdef _WIN32
    return path.size() >= 3 && path[1] == ':' && IsPathSeparator(path[2]);
#else
    return !path.empty() && path.front() == kPathSeparator;
#endif
}

} // namespace qrtVistrelClasses4
