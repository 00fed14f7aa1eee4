// Words that several checks share.
#pragma once

#include "platform/Platform.h"
#include "settings/RegistrySettings.h"

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// "64-bit".
inline std::string BitsText(Bitness bitness) { return std::to_string(static_cast<int>(bitness)) + "-bit"; }

/// Where the settings below `key` are kept: the file, or the key of the registry.
inline std::string SettingsPlace(std::string_view key) {
    const std::string file = platform().registry().file();
    return file.empty() ? "HKEY_LOCAL_MACHINE\\" + std::string(kSettingsKey) + "\\" + std::string(key)
                        : file + ", " + std::string(key);
}

} // namespace qrtVistrelClasses4
