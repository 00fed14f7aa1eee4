// The registry of machines that have none of their own.
#pragma once

#include "platform/RegistryTree.h"

#include <functional>
#include <mutex>

namespace qrtVistrelClasses4 {

/// A store over a `RegistryTree`. Derived classes say where the tree is kept. Several threads may use a store
/// at the same time.
class TreeRegistryStore : public RegistryStore {
public:
    bool keyExists(const RegistryKey& key) override;
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

    /// The tree as it is kept now. Only one thread at a time is in this function or reads its result.
    virtual const RegistryTree& tree() = 0;
    /// Runs `edit` on the tree as it is kept now, and keeps the result unless `edit` failed. Only one thread
    /// at a time is in this function.
    virtual SystemError change(const Edit& edit) = 0;

private:
    SystemError changeAlone(const Edit& edit);

    std::mutex mutex_;
};

} // namespace qrtVistrelClasses4
