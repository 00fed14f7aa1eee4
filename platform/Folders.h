// Folders that are made when something is to lie in them.
#pragma once

#include "platform/FileSystem.h"

#include <functional>
#include <string>

namespace qrtVistrelClasses4 {

/// Makes the folder that `path` lies in and those above it, if they are missing, each by `make(folder)`.
SystemError MakeFoldersAbove(FileSystem& files, const std::string& path,
                             const std::function<SystemError(const std::string& folder)>& make);

} // namespace qrtVistrelClasses4
