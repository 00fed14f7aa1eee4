// Settings that live in the registry, addressed by application, section and value name.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Applications and the section of the settings that several rooms read.
inline constexpr std::string_view kVistrel3 = "Vistrel3";
inline constexpr std::string_view kVistrelLite = "VistrelLite";
inline constexpr std::string_view kSettingsSection = "Settings";

/// The stored string, or `DefaultValue` unchanged when it was never written.
std::string ReadSetting(const std::string& Application, const std::string& Section,
                        const std::string& ValueName, const std::string& DefaultValue);

/// Stores a string. Failure is not told.
void WriteSetting(const std::string& Application, const std::string& Section, const std::string& ValueName,
                  const std::string& Value);

} // namespace qrtVistrelClasses4
