// A step of loading and saving a command table that `clsCommandInterface` takes by itself.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

/// Makes the last folder of `path`, but no folder above it. If it cannot be made, opening the file fails.
void MakeFolderOfCommandTable(const std::string& path);

} // namespace qrtVistrelClasses4
