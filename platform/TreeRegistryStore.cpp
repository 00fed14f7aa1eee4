#include "platform/TreeRegistryStore.h"

namespace qrtVistrelClasses4 {

SystemError TreeRegistryStore::createKey(const RegistryKey& key) {
    return change([&](RegistryTree& tree) { return tree.addKey(key); });
}

SystemError TreeRegistryStore::deleteKey(const RegistryKey& key) {
    return change([&](RegistryTree& tree) { return tree.removeKey(key); });
}

SystemError TreeRegistryStore::deleteValue(const RegistryKey& key, std::string_view name) {
    return change([&](RegistryTree& tree) { return tree.removeValue(key, name); });
}

Result<std::string> TreeRegistryStore::readString(const RegistryKey& key, std::string_view name) {
    if (const std::string* value = tree().value(key, name))
        return *value;
    return SystemError::fileNotFound;
}

SystemError TreeRegistryStore::writeString(const RegistryKey& key, std::string_view name,
                                           std::string_view value) {
    return change([&](RegistryTree& tree) { return tree.setValue(key, name, value); });
}

Result<std::vector<std::string>> TreeRegistryStore::subkeys(const RegistryKey& key) {
    const RegistryTree& now = tree();
    if (!now.hasKey(key))
        return SystemError::fileNotFound;
    return now.subkeys(key);
}

Result<std::vector<std::string>> TreeRegistryStore::valueNames(const RegistryKey& key) {
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

} // namespace qrtVistrelClasses4
