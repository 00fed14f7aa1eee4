#include "platform/TreeRegistryStore.h"

namespace qrtVistrelClasses4 {

bool TreeRegistryStore::keyExists(const RegistryKey& key) {
    const std::lock_guard lock(mutex_);
    return tree().hasKey(key);
}

SystemError TreeRegistryStore::createKey(const RegistryKey& key) {
    return changeAlone([&](RegistryTree& tree) { return tree.addKey(key); });
}

SystemError TreeRegistryStore::deleteKey(const RegistryKey& key) {
    return changeAlone([&](RegistryTree& tree) { return tree.removeKey(key); });
}

SystemError TreeRegistryStore::deleteValue(const RegistryKey& key, std::string_view name) {
    return changeAlone([&](RegistryTree& tree) { return tree.removeValue(key, name); });
}

Result<std::string> TreeRegistryStore::readString(const RegistryKey& key, std::string_view name) {
    const std::lock_guard lock(mutex_);
    if (const std::string* value = tree().value(key, name))
        return *value;
    return SystemError::fileNotFound;
}

SystemError TreeRegistryStore::writeString(const RegistryKey& key, std::string_view name,
                                           std::string_view value) {
    return changeAlone([&](RegistryTree& tree) { return tree.setValue(key, name, value); });
}

Result<std::vector<std::string>> TreeRegistryStore::subkeys(const RegistryKey& key) {
    const std::lock_guard lock(mutex_);
    const RegistryTree& now = tree();
    if (!now.hasKey(key))
        return SystemError::fileNotFound;
    return now.subkeys(key);
}

Result<std::vector<std::string>> TreeRegistryStore::valueNames(const RegistryKey& key) {
    const std::lock_guard lock(mutex_);
    const RegistryTree& now = tree();
    if (!now.hasKey(key))
        return SystemError::fileNotFound;
    return now.valueNames(key);
}

Result<std::string> TreeRegistryStore::readRemoteString(const std::string&, const RegistryKey&,
                                                        std::string_view) {
    return SystemError::unsupported;
}

SystemError TreeRegistryStore::writeRemoteString(const std::string&, const RegistryKey&, std::string_view,
                                                 std::string_view) {
    return SystemError::unsupported;
}

SystemError TreeRegistryStore::changeAlone(const Edit& edit) {
    const std::lock_guard lock(mutex_);
    return change(edit);
}

} // namespace qrtVistrelClasses4
