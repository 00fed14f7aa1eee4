#include "settings/AppFolder.h"

#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {

std::string GetAppFolder() {
    return traced({"modAppFolder.bas", ProcedureKind::Function, "GetAppFolder"}, [] {
        return WithTrailingSeparator(
            ReadSetting(std::string(kVistrel3), std::string(kSettingsSection), "AppPath", LibraryFolder()));
    });
}

std::string LibraryFolder() { return platform().libraryFolder(); }

} // namespace qrtVistrelClasses4
