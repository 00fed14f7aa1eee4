// Where this user keeps what.
#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// The user's own folder.
std::string userHome();
/// Folder for settings: $XDG_CONFIG_HOME, else ".config" in the user's own folder.
std::string configurationFolder();
/// Whether a shell number stands for a folder that users have here.
bool isUserFolder(int shellNumber);
/// The folder that a shell number stands for, as the desktop has it in "user-dirs.dirs", else by its usual
/// English name in the user's own folder; none for a number that has no counterpart.
std::optional<std::string> userFolder(FileSystem& files, int shellNumber);
/// Makes `folder` with the folders above it, as far as they are missing.
SystemError makeFolders(FileSystem& files, const std::string& folder);
/// Folder of the program or shared library that holds this code.
std::string moduleFolder();

/// The folder that `variable` is set to in the text of a "user-dirs.dirs" file; empty when it is not set.
std::string userDirectory(std::string_view text, std::string_view variable, std::string_view home);

} // namespace qrtVistrelClasses4
