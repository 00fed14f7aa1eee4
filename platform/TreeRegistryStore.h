// Registry on a machine that has none of its own.
#pragma once

#include "platform/RegistryTree.h"

#include <functional>

namespace qrtVistrelClasses4 {

/// A store over a `RegistryTree`; who derives from it says where the tree is kept.
class TreeRegistryStore : public RegistryStore {
public:
    bool keyExists(const RegistryKey& key) override { return tree().hasKey(key); }
    SystemError createKey(const RegistryKey& key) override;
    SystemError deleteKey(const RegistryKey& key) override;
    SystemError deleteValue(const RegistryKey& key, std::string_view name) override;

    Result<std::string> readString(const RegistryKey& key, std::string_view name) override;
    SystemError writeString(const RegistryKey& key, std::string_view name, std::string_view value) override;

    Result<std::vector<std::string>> subkeys(const RegistryKey& key) override;
    Result<std::vector<std::string>> valueNames(const RegistryKey& key) override;

    Result<std::string> readRemoteString(const std::string& machine, const RegistryKey& key,
                                         std::string_view name) override;
    SystemError writeRemoteString(const std::string& machine, const RegistryKey& key, std::string_view name,
                                  std::string_view value) override;

protected:
    using Edit = std::function<SystemError(RegistryTree&)>;

    /// The tree as it is kept now, to be read at once.
    virtual const RegistryTree& tree() = 0;
    /// Runs `edit` on the tree as it is kept now, and keeps the result unless it failed.
    virtual SystemError change(const Edit& edit) = 0;
};

} // namespace qrtVistrelClasses4
