// The command table on disk, which is written again after each use.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/CommandTableFile.h>

namespace qrtVistrelClasses4 {

/// Loads the table, saves it after `use(table)`, and returns what `use` returned. Errors of both are
/// reported.
template <class Use>
auto WithStoredCommands(ErrorLines& errors, Use use) {
    CommandTableOutcome loaded = LoadCommandTable(CommandTablePath());
    if (loaded.error) {
        errors.about("the command table cannot be read");
        errors.add(*loaded.error);
    }
    auto result = use(loaded.table);
    const SavedCommandTable saved = SaveCommandTable(loaded.table, loaded.source);
    if (saved.keptAs) {
        errors.about("the command table");
        errors.add("the file could not be used as it was, and is kept as " + *saved.keptAs);
    }
    if (saved.error) {
        errors.about("the command table cannot be saved");
        errors.add(*saved.error);
    }
    return result;
}

} // namespace qrtVistrelClasses4
