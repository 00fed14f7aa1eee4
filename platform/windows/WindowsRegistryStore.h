#pragma once

#include "platform/RegistryStore.h"

namespace qrtVistrelClasses4 {

/// The Windows registry, in the view of this program's own bitness.
class WindowsRegistryStore final : public RegistryStore {
public:
    bool keyExists(const RegistryKey& key) override;
    SystemError createKey(const RegistryKey& key) override;
    SystemError deleteKey(const RegistryKey& key) override;
    SystemError deleteValue(const RegistryKey& key, std::string_view name) override;

    Result<std::string> readString(const RegistryKey& key, std::string_view name) override;
    Result<std::string> readAsText(const RegistryKey& key, std::string_view name) override;
    SystemError writeString(const RegistryKey& key, std::string_view name, std::string_view value) override;

    Result<std::vector<std::string>> subkeys(const RegistryKey& key) override;
    Result<std::vector<std::string>> valueNames(const RegistryKey& key) override;

    Result<std::string> readRemoteString(const std::string& machine, const RegistryKey& key,
                                         std::string_view name) override;
    SystemError writeRemoteString(const std::string& machine, const RegistryKey& key, std::string_view name,
                                  std::string_view value) override;
};

} // namespace qrtVistrelClasses4
