#include "settings/AppFolder.h"

#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {

std::string GetAppFolder() {
    return traced({"modAppFolder.bas", ProcedureKind::Function, "GetAppFolder"}, [] {
        const std::string folder =
            ReadSetting(std::string(kVistrel3), std::string(kSettingsSection), "AppPath", LibraryFolder());
        // An empty setting would lead to whatever folder happens to be the current one.
        return WithTrailingSeparator(folder.empty() ? LibraryFolder() : folder);
    });
}

std::string LibraryFolder() { return platform().libraryFolder(); }

} // namespace qrtVistrelClasses4
