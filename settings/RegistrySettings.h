// Settings that live in the registry, addressed by application, section and value name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The key below HKEY_LOCAL_MACHINE that holds them all.
inline constexpr std::string_view kSettingsKey = "Software\\Brivox";
/// Applications and the section of the settings that several rooms read.
inline constexpr std::string_view kVistrel3 = "Vistrel3";
inline constexpr std::string_view kVistrelLite = "VistrelLite";
inline constexpr std::string_view kSettingsSection = "Settings";

/// The stored string, or `DefaultValue` unchanged if it was never written. Nothing after an error that was
/// trapped.
std::optional<std::string> FindSetting(const std::string& Application, const std::string& Section,
                                       const std::string& ValueName, const std::string& DefaultValue);
/// The same; "" after an error.
std::string ReadSetting(const std::string& Application, const std::string& Section,
                        const std::string& ValueName, const std::string& DefaultValue);

/// Stores a string. A failure is not reported.
void WriteSetting(const std::string& Application, const std::string& Section, const std::string& ValueName,
                  const std::string& Value);

/// One such setting.
struct RegistrySetting {
    std::string_view application;
    std::string_view section;
    std::string_view valueName;

    std::optional<std::string> find(const std::string& defaultValue) const {
        return FindSetting(std::string(application), std::string(section), std::string(valueName),
                           defaultValue);
    }
    std::string read(const std::string& defaultValue) const { return find(defaultValue).value_or(""); }
    void write(const std::string& value) const {
        WriteSetting(std::string(application), std::string(section), std::string(valueName), value);
    }
};

} // namespace qrtVistrelClasses4
