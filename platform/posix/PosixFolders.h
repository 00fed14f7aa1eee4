// The folders of this user.
#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// A variable of the environment. No value for one that is not set, or empty.
std::optional<std::string> environment(const char* name);

/// The user's home folder.
std::string userHome();
/// The folder for settings: $XDG_CONFIG_HOME, else ".config" in the home folder.
std::string configurationFolder();
/// The folder for what programs keep: $XDG_DATA_HOME, else ".local/share" in the home folder.
std::string dataFolder();
/// The folder for what programs note about themselves: $XDG_STATE_HOME, else ".local/state" in the home
/// folder.
std::string stateFolder();
/// The folder that the environment puts in the place of all these; no value if it names none.
std::optional<std::string> replacedHome();
/// The folder with that shell number: the one in the desktop's "user-dirs.dirs", else the usual English name
/// in the home folder. No value for a number without a counterpart.
std::optional<std::string> userFolder(FileSystem& files, int shellNumber);
/// Makes the folder that `path` lies in and those above it, if they are missing. Only this user may use the
/// new ones.
SystemError makePrivateFoldersAbove(const std::string& path);
/// The folder of the program or shared library that contains this code.
std::string moduleFolder();

/// The folder that `variable` is set to in the text of a "user-dirs.dirs" file. No value if it is not set, or
/// not to a full path.
std::optional<std::string> userDirectory(std::string_view text, std::string_view variable,
                                         std::string_view home);

} // namespace qrtVistrelClasses4
