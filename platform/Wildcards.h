// Names with "*" and "?", which shells replace by the names of files on POSIX systems, and programs on
// Windows.
#pragma once

#include "platform/FileSystem.h"

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Whether `name` is as `pattern` says, in any case of letters. "*" is any text, "?" one character, and "*.*"
/// everything. A dot in front of a name is only met by a dot.
bool MatchesPattern(std::string_view name, std::string_view pattern);

/// The paths that `pattern` describes, in the order of their bytes. Each part of it may have wildcards. The
/// pattern itself if it has none, or if no path is as it says.
std::vector<std::string> ExpandWildcards(FileSystem& files, const std::string& pattern);

} // namespace qrtVistrelClasses4
