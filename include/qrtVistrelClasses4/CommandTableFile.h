// The command table from and to its file.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// Where a table came from, which saving it has to know.
struct CommandTableSource {
    /// The file whose rows are all in the table. Another file that is saved over is copied first.
    std::optional<std::string> path;
    bool isForeign = false; ///< That file was not written as a table. It is copied, too.
};

/// What came of reading a table.
struct CommandTableOutcome {
    CommandTable table; ///< The built-in rows, and those that were read.
    CommandTableSource source;
    std::int32_t rowsRead = 0;
    bool isMissing = false; ///< There is no file yet, which is no error.
    std::optional<RuntimeError> error;
};

/// What came of saving a table.
struct SavedCommandTable {
    std::string path;                  ///< The file, which is also remembered for loading.
    std::optional<std::string> keptAs; ///< The copy that this save made of the file that was there.
    std::optional<RuntimeError> error; ///< The file is as it was.
};

/// Full name of the table that was saved last; by default "db/VistrelLite.dat" in the library's folder.
std::string CommandTablePath();

/// Makes the last folder of `path` if it is missing.
CommandTableOutcome LoadCommandTable(const std::string& path);

/// Saves over the file that there is, or else to the default name.
SavedCommandTable SaveCommandTable(const CommandTable& table, const CommandTableSource& source);

} // namespace qrtVistrelClasses4
