// The steps of loading a command table, for `clsCommandInterface`, whose trace shows what comes between them.
#pragma once

#include <qrtVistrelClasses4/CommandTableFile.h>

#include <string>

namespace qrtVistrelClasses4 {

/// Makes the last folder of `path`, but no folder above it. If it cannot be made, opening the file fails.
void MakeFolderOfCommandTable(const std::string& path);

/// Loads the file `path`.
CommandTableOutcome ReadCommandTable(const std::string& path);

} // namespace qrtVistrelClasses4
