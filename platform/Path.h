// File names as the machine writes them: one helper joins, one splits.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

/// Windows takes "/" for a separator too, and playfiles made there name their files with "\" on every
/// machine.
constexpr bool IsPathSeparator(char character) { return character == '\\' || character == '/'; }

/// `folder` ending in a separator of this machine; an empty folder stays empty.
std::string WithTrailingSeparator(std::string_view folder);

/// `folder` and `name` with one separator between them; an empty folder gives `name` alone.
std::string JoinPath(std::string_view folder, std::string_view name);

struct SplitPathResult {
    /// Up to and including the last separator, or on Windows the colon of a drive; empty when there is none.
    std::string_view folder;
    /// What follows.
    std::string_view name;
};

/// Cuts `path` behind its last separator. The views refer to `path`.
SplitPathResult SplitPath(std::string_view path);

/// Whether `path` says where it starts: on a drive ("C:") on Windows, at the root elsewhere.
/// A Windows network name ("\\host\share") carries no drive and is not rooted.
bool IsRootedPath(std::string_view path);

} // namespace qrtVistrelClasses4
