// Loading and saving the command table.
//
// These functions use the platform and the settings of the process. Several threads may call them at once for
// different files.
// The functions report failures of files in what they return. They throw error 7 for lack of memory and error
// 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Where a table came from. Saving depends on it.
struct CommandTableSource {
    /// The file whose rows are all in the table. Any other file is copied before a save replaces it.
    std::optional<std::string> path;
    bool isForeign = false; ///< True if that file was not written as a table. It is copied, too.
};

/// What came of reading a table.
struct [[nodiscard]] CommandTableOutcome {
    CommandTable table; ///< The built-in rows, and those that were read.
    CommandTableSource source;
    bool isMissing = false; ///< True if there is no file yet. This is not an error.
    std::optional<RuntimeError> error;
};

/// What came of saving a table.
struct [[nodiscard]] SavedCommandTable {
    std::string path;                  ///< The file, which is also remembered for loading.
    std::optional<std::string> keptAs; ///< The copy of the file before, if the table lacks what was in it.
    std::optional<RuntimeError> error; ///< If there is one, the file is unchanged.
};

/// Full name of the table that was saved last; by default "db/VistrelLite.dat" in the library's folder, or if
/// that is missing, the one beside the program.
QRT_PUBLIC std::string CommandTablePath();

/// Loads the file `path`.
QRT_PUBLIC CommandTableOutcome LoadCommandTable(const std::string& path);

/// Replaces the existing file. If there is none, or only the one beside the program, saves under the default
/// name in the library's folder.
QRT_PUBLIC SavedCommandTable SaveCommandTable(const CommandTable& table, const CommandTableSource& source);

} // namespace qrtVistrelClasses4
