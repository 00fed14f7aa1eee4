// One key of the registry, and what can be done with it.
#pragma once

#include "platform/RegistryStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// The key `Subkey` under the hive `hKey`. Nothing is held open between calls; two objects may name the same
/// key. Every operation but the two accessors is traced. If the system refuses an operation, the operation
/// returns its failure result; that is not an error.
class RegistryRoutines {
public:
    static constexpr std::string_view ClassName() { return "RegistryRoutines"; }

    RegistryHive hKey() const { return key_.hive; }
    void hKey(RegistryHive vData) { key_.hive = vData; }
    /// Parts separated by "\".
    const std::string& Subkey() const { return key_.path; }
    void Subkey(const std::string& vData) { key_.path = vData; }

    bool KeyExists();
    /// Makes the key and those above it; an existing one is left alone. False if the system refuses.
    bool CreateKey();
    /// Removes the key and all below it. False if it is missing or the system refuses.
    bool DeleteKey();
    bool DeleteValue(const std::string& ValueName);
    /// Names of the keys directly below; empty if the key is missing.
    std::vector<std::string> EnumRegistryKeys();
    /// Names of the key's values; empty if the key is missing.
    std::vector<std::string> EnumRegistryValues();
    /// The string value, or `DefaultValue` unchanged if the key or the value is missing.
    std::string GetRegistryValue(const std::string& ValueName, const std::string& DefaultValue) {
        return FindRegistryValue(ValueName, DefaultValue).value_or("");
    }
    /// The same, but nothing after an error that was trapped.
    std::optional<std::string> FindRegistryValue(const std::string& ValueName,
                                                 const std::string& DefaultValue);
    /// Stores a string value, and makes the key if needed.
    bool SetRegistryValue(const std::string& ValueName, const std::string& Value);

    /// The same on another machine of the network. If there is no such service, reading returns the default,
    /// and writing false.
    std::string ReadRemoteRegistryValue(const std::string& MachineName, const std::string& ValueName,
                                        const std::string& DefaultValue);
    bool WriteRemoteRegistryValue(const std::string& MachineName, const std::string& ValueName,
                                  const std::string& Value);

    /// `Text` before its first NUL character.
    static std::string TrimNull(const std::string& Text);

private:
    RegistryKey key_;
};

} // namespace qrtVistrelClasses4
