// String values in a tree of keys: the Windows registry, or a file that replaces it.
#pragma once

#include "platform/SystemError.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// The predefined root keys, by the numbers that Windows gives them.
enum class RegistryHive : std::uint32_t {
    classesRoot = 0x80000000,
    currentUser = 0x80000001,
    localMachine = 0x80000002,
    users = 0x80000003,
};

struct RegistryKey {
    RegistryHive hive = RegistryHive::localMachine;
    /// Parts are separated by "\" on every machine. Case does not matter.
    std::string path;
};

/// Several threads may use a store at the same time.
class RegistryStore {
public:
    virtual ~RegistryStore() = default;

    /// The file that holds all of it; empty if it is kept elsewhere.
    virtual std::string file() { return {}; }

    virtual bool keyExists(const RegistryKey& key) = 0;
    /// Makes the key and the keys above it. An existing key stays as it is.
    virtual SystemError createKey(const RegistryKey& key) = 0;
    /// Removes the key and everything below it. A missing key is `fileNotFound`.
    virtual SystemError deleteKey(const RegistryKey& key) = 0;
    virtual SystemError deleteValue(const RegistryKey& key, std::string_view name) = 0;

    /// `fileNotFound` if the key or the value is missing, or if the value is not a string.
    virtual Result<std::string> readString(const RegistryKey& key, std::string_view name) = 0;
    /// The same, but a whole number is read as its decimal text, where a store has values that are numbers.
    virtual Result<std::string> readAsText(const RegistryKey& key, std::string_view name) {
        return readString(key, name);
    }
    /// A missing key is made.
    virtual SystemError writeString(const RegistryKey& key, std::string_view name,
                                    std::string_view value) = 0;

    /// Names of the keys directly below, in the store's order.
    virtual Result<std::vector<std::string>> subkeys(const RegistryKey& key) = 0;
    /// Names of the values of the key, in the store's order.
    virtual Result<std::vector<std::string>> valueNames(const RegistryKey& key) = 0;

    /// The same on another machine of the network. `unsupported` on systems without such a service.
    virtual Result<std::string> readRemoteString(const std::string& machine, const RegistryKey& key,
                                                 std::string_view name) = 0;
    virtual SystemError writeRemoteString(const std::string& machine, const RegistryKey& key,
                                          std::string_view name, std::string_view value) = 0;
};

} // namespace qrtVistrelClasses4
