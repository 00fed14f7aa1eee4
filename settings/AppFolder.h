// The two folders in which the application keeps its files.
#pragma once

#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// The application data folder, ending in a separator: the setting "Vistrel3" / "Settings" / "AppPath", or
/// else, also after an error, the library's own folder. "VistrelLite.ini", "NewEffects.ini", the fonts and
/// the copies of pictures live there.
std::string GetAppFolder();
/// The same, but nothing after an error that was trapped.
std::optional<std::string> FindAppFolder();

/// The library's own folder (`Platform::libraryFolder`). It ends in a separator only if it is a root. The
/// list of signs and the recent files live there.
std::string LibraryFolder();

} // namespace qrtVistrelClasses4
