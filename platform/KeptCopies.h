// Copies of files that are about to be replaced.
#pragma once

#include "platform/FileSystem.h"

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The ending that is added to the name of an old file that is kept.
inline constexpr std::string_view kBackupEnding = ".bak";

/// The name under which to keep the version of `path` before the present one. If it is a link, the link is
/// removed: in a folder that others may write to, it could lead to any file of the user.
std::string MakePlaceForBackup(FileSystem& files, const std::string& path);

enum class IfNotCopied {
    fail,
    rename, ///< Renames the file, which takes no space, if it may be written and is no link.
};

/// Keeps a file that is about to be replaced though nobody could read it completely. The copy's name ends in
/// ".bak", ".bak2" and so on, starting from `firstNumber`; it never replaces another file. A copy with the
/// same bytes is enough if there is one already. Returns the name of the copy.
Result<std::string> KeepAside(FileSystem& files, const std::string& path, IfNotCopied ifNotCopied,
                              int firstNumber = 1);

/// Whether `name` is that of a copy of the file `original`, as either function names it. Both without a
/// folder.
bool IsNameOfCopy(std::string_view name, std::string_view original);

} // namespace qrtVistrelClasses4
