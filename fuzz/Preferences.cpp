// Any bytes as the file of the preferences.
#include "Fuzz.h"
#include <qrtVistrelClasses4/SettingsInfoClass.h>

namespace qrtVistrelClasses4 {

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary("VistrelLite.ini");
    host.machine.files().put(path, input.rest());
    const auto savedAgain = [&] {
        SettingsInfoClass settings;
        settings.GetSettingsFromDisk();
        settings.SaveSettingsToDisk();
        return host.machine.files().content(path);
    };
    const auto first = savedAgain();
    Require(savedAgain() == first, "what was saved comes back");
}

} // namespace qrtVistrelClasses4
