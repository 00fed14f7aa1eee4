// The command table on disk.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/CommandTableFile.h>

#include <concepts>

namespace qrtVistrelClasses4 {

/// Saves a changed table. Errors are reported.
inline void SaveStoredCommands(const CommandTableOutcome& changed, ErrorLines& errors) {
    const SavedCommandTable saved = SaveCommandTable(changed.table, changed.source);
    if (saved.keptAs) {
        errors.about("the command table");
        errors.add("the file could not be used as it was, and is kept as " + *saved.keptAs);
    }
    if (saved.error) {
        errors.about("the command table cannot be saved");
        errors.add(*saved.error);
    }
}

/// Loads the table. Errors are reported.
inline CommandTableOutcome LoadStoredCommands(ErrorLines& errors) {
    CommandTableOutcome loaded = LoadCommandTable(CommandTablePath());
    if (loaded.error) {
        errors.about("the command table cannot be read");
        errors.add(*loaded.error);
    }
    return loaded;
}

/// Loads the table and returns what `use(table)` returns. The table is saved only if `use` is one that may
/// change it. Errors are reported.
template <class Use>
auto WithStoredCommands(ErrorLines& errors, Use use) {
    CommandTableOutcome loaded = LoadStoredCommands(errors);
    constexpr bool isChanged = !std::invocable<Use&, const CommandTable&>;
    if (!isChanged && loaded.source.isForeign) {
        errors.about("the command table");
        errors.add("the file was not written as one: " + *loaded.source.path);
    }
    auto result = use(loaded.table);
    if constexpr (isChanged)
        SaveStoredCommands(loaded, errors);
    return result;
}

} // namespace qrtVistrelClasses4
