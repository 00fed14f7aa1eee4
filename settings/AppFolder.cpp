#include "settings/AppFolder.h"

#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/RegistrySettings.h"

#include <utility>

namespace qrtVistrelClasses4 {

std::string GetAppFolder() {
    std::optional<std::string> folder = FindAppFolder();
    return folder ? *std::move(folder) : WithTrailingSeparator(LibraryFolder());
}

std::optional<std::string> FindAppFolder() {
    return traced({"modAppFolder.bas", ProcedureKind::Function, "GetAppFolder"},
                  []() -> std::optional<std::string> {
                      const std::optional<std::string> folder = FindSetting(
                          std::string(kVistrel3), std::string(kSettingsSection), "AppPath", LibraryFolder());
                      if (!folder)
                          return std::nullopt;
                      // An empty setting would lead to whatever folder happens to be the current one.
                      return WithTrailingSeparator(folder->empty() ? LibraryFolder() : *folder);
                  });
}

std::string LibraryFolder() { return platform().libraryFolder(); }

} // namespace qrtVistrelClasses4
