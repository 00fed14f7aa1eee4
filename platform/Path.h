// Joining and splitting of file names.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

/// Both characters separate folders on every machine: Windows accepts "/", and playfiles that were made on
/// Windows contain "\".
constexpr bool IsPathSeparator(char character) { return character == '\\' || character == '/'; }

/// `folder` with a separator at its end. An empty folder stays empty.
std::string WithTrailingSeparator(std::string_view folder);

/// `folder` and `name` with one separator between them, or `name` alone if `folder` is empty.
std::string JoinPath(std::string_view folder, std::string_view name);

struct SplitPathResult {
    /// The part up to and including the last separator (on Windows also the colon of a drive); empty without
    /// one.
    std::string_view folder;
    /// The rest.
    std::string_view name;
};

/// Splits `path` after its last separator. The views refer to `path`.
SplitPathResult SplitPath(std::string_view path);

/// The size of what no folder lies above: "/", and on Windows also "C:\", "C:", "\\server\share\", and
/// each after "\\?\".
std::size_t RootSize(std::string_view path);

/// The folder that this machine finds `path` in, without a separator at its end unless it is a root; "." if
/// `path` is a name alone.
std::string FolderOf(const std::string& path);

/// `folder` without the separators at its end. A root keeps its own.
std::string WithoutTrailingSeparators(std::string_view folder);

/// Whether `path` starts with a drive ("C:") on Windows, or with the root elsewhere. A Windows network name
/// ("\\host\share") has no drive and is not rooted.
bool IsRootedPath(std::string_view path);

} // namespace qrtVistrelClasses4
