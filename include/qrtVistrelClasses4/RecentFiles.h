// The files opened last as a value, and their file.
//
// The functions of files use the platform and the settings of the process. Several threads may call them at
// once for different files.
// The functions for the file report failures of files in what they return. They throw error 7 for lack of
// memory and error 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/OneBasedArray.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <optional>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Names of files, newest first. Names are equal if only the case of their letters differs, in the
/// system's code page; on POSIX systems, in Windows-1252.
struct RecentFiles {
    /// The last one is usually empty.
    OneBasedArray<std::string> entries;

    /// Removes every entry of that name, and every empty one; a new empty one then ends the list. Returns
    /// whether the name was there.
    bool remove(std::string_view name);
    /// Puts `name` in front of the other entries, which stay as they are.
    void putFirst(const std::string& name);

    bool operator==(const RecentFiles&) const = default;
};

/// What came of reading a list.
struct [[nodiscard]] RecentFilesOutcome {
    RecentFiles files; ///< As far as it could be read; one empty entry if nothing could.
    /// A file that does not exist yet is a quiet error.
    std::optional<RuntimeError> error;
    bool isDamaged = false; ///< True if the file was opened, but not read to its end.
    /// True if saving loses no names: all have been read, or the damaged file has been copied.
    bool mayBeReplaced = false;
    std::optional<std::string> keptAs; ///< The copy of a damaged file.
};

/// Full name of the list that was saved last. If none was, it is the one that `SaveRecentFiles` writes, or
/// one that lies beside the program. Nothing after an error that was trapped.
QRT_PUBLIC std::optional<std::string> RecentFilesPath();

/// Reads the file `path` as far as it can be read, and writes nothing. A damaged file may not be replaced
/// then.
QRT_PUBLIC RecentFilesOutcome ReadRecentFiles(const std::string& path);
/// Loads the file `path`. A damaged file is also copied to `path` + ".bak", ".bak2" and so on, unless it lies
/// beside the program, where nothing is written.
QRT_PUBLIC RecentFilesOutcome LoadRecentFiles(const std::string& path);

/// Saves the list as "VistrelLite.MRU" in the library's folder, and remembers that name for loading. Returns
/// the error if that fails; the file is then unchanged.
QRT_PUBLIC [[nodiscard]] std::optional<RuntimeError> SaveRecentFiles(const RecentFiles& files);

} // namespace qrtVistrelClasses4
