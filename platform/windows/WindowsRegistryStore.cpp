#include "platform/windows/WindowsRegistryStore.h"

#include "platform/CodePage.h"
#include "platform/FileNames.h"
#include "platform/NulTerminated.h"
#include "platform/windows/WindowsNames.h"
#include "platform/windows/WindowsSystem.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// An open key, closed with the object. Closing a predefined one does nothing.
class OpenKey {
public:
    OpenKey() = default;
    ~OpenKey() {
        if (key_)
            ::RegCloseKey(key_);
    }
    OpenKey(OpenKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    OpenKey& operator=(OpenKey&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }

    HKEY get() const { return key_; }
    HKEY* receive() { return &key_; }

private:
    HKEY key_ = nullptr;
};

SystemError errorOf(LSTATUS status) { return systemError(static_cast<DWORD>(status)); }

/// The system's own value for a root key; none for a number that is no root key: it could happen to be some
/// other handle of this program.
HKEY predefined(RegistryHive hive) {
    switch (hive) {
    case RegistryHive::classesRoot:
        return HKEY_CLASSES_ROOT;
    case RegistryHive::currentUser:
        return HKEY_CURRENT_USER;
    case RegistryHive::localMachine:
        return HKEY_LOCAL_MACHINE;
    case RegistryHive::users:
        return HKEY_USERS;
    }
    return nullptr;
}

Result<OpenKey> openKey(HKEY root, const std::string& path, REGSAM access) {
    if (!root)
        return SystemError::fileNotFound;
    OpenKey key;
    const SystemError error = errorOf(::RegOpenKeyExA(root, path.c_str(), 0, access, key.receive()));
    if (error != SystemError::none)
        return error;
    return key;
}

Result<OpenKey> openKey(const RegistryKey& key, REGSAM access) {
    return openKey(predefined(key.hive), key.path, access);
}

Result<OpenKey> makeKey(HKEY root, const std::string& path) {
    if (!root)
        return SystemError::fileNotFound;
    OpenKey key;
    const SystemError error = errorOf(::RegCreateKeyExA(
        root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, key.receive(), nullptr));
    if (error != SystemError::none)
        return error;
    return key;
}

/// The text that `query(type, bytes, size)` gives. Registries keep texts in 16-bit characters; the function
/// says which ones it gives.
template <class Character, class Query>
Result<std::basic_string<Character>> storedText(Query query) {
    std::basic_string<Character> text(256, Character());
    for (;;) {
        DWORD type = REG_NONE;
        auto size = static_cast<DWORD>(text.size() * sizeof(Character));
        const LSTATUS status = query(&type, reinterpret_cast<BYTE*>(text.data()), &size);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
            return errorOf(status);
        if (type != REG_SZ && type != REG_EXPAND_SZ)
            return SystemError::fileNotFound;
        if (status == ERROR_SUCCESS) {
            text.resize(size / sizeof(Character));
            // The NUL at the end is part of what is stored, or has been forgotten.
            text.resize(std::min(text.size(), text.find(Character())));
            return text;
        }
        text.resize(size / sizeof(Character) + 1);
    }
}

/// `text`, in which names of files are in the encoding of this process, in that of the registry.
std::wstring wideText(std::string_view text) { return WideFromUtf8(Utf8FromName(text)); }

Result<std::string> stringIn(HKEY root, const std::string& path, std::string_view name) {
    const auto key = openKey(root, path, KEY_QUERY_VALUE);
    if (!key)
        return key.error();
    const HKEY opened = key.value().get();
    if (!AreNamesUtf8())
        return storedText<char>(
            [opened, valueName = std::string(name)](DWORD* type, BYTE* bytes, DWORD* size) {
                return ::RegQueryValueExA(opened, valueName.c_str(), nullptr, type, bytes, size);
            });
    const auto text =
        storedText<wchar_t>([opened, valueName = wideText(name)](DWORD* type, BYTE* bytes, DWORD* size) {
            return ::RegQueryValueExW(opened, valueName.c_str(), nullptr, type, bytes, size);
        });
    return text ? Result(Utf8FromWide(text.value())) : text.error();
}

SystemError setStringIn(HKEY root, const std::string& path, std::string_view name, std::string_view value) {
    const auto key = makeKey(root, path);
    if (!key)
        return key.error();
    const auto set = [&](auto function, const auto& valueName, const auto& text) {
        return errorOf(function(key.value().get(), valueName.c_str(), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(text.c_str()),
                                static_cast<DWORD>((text.size() + 1) * sizeof text.front())));
    };
    const std::string text(UntilNul(value));
    return AreNamesUtf8() ? set(&::RegSetValueExW, wideText(name), wideText(text))
                          : set(&::RegSetValueExA, std::string(name), text);
}

Result<OpenKey> connect(const std::string& machine, RegistryHive hive) {
    if (!predefined(hive))
        return SystemError::fileNotFound;
    OpenKey root;
    const SystemError error =
        errorOf(::RegConnectRegistryA(machine.c_str(), predefined(hive), root.receive()));
    if (error != SystemError::none)
        return error;
    return root;
}

/// All names that `next(index, buffer, size)` gives, until it reports that there are no more.
template <class Next>
Result<std::vector<std::string>> enumerate(Next next) {
    std::vector<std::string> names;
    std::string buffer(16384, '\0'); // longest name of a value, with its NUL
    for (DWORD index = 0;; ++index) {
        auto size = static_cast<DWORD>(buffer.size());
        const LSTATUS status = next(index, buffer.data(), &size);
        if (status == ERROR_NO_MORE_ITEMS)
            return names;
        if (status != ERROR_SUCCESS)
            return errorOf(status);
        names.push_back(buffer.substr(0, size));
    }
}

} // namespace

bool WindowsRegistryStore::keyExists(const RegistryKey& key) {
    return openKey(key, KEY_QUERY_VALUE).error() == SystemError::none;
}

SystemError WindowsRegistryStore::createKey(const RegistryKey& key) {
    return makeKey(predefined(key.hive), key.path).error();
}

SystemError WindowsRegistryStore::deleteKey(const RegistryKey& key) {
    const std::string path(UntilNul(key.path));
    // Without a path the system would empty the whole hive.
    if (path.find_first_not_of('\\') == path.npos)
        return SystemError::accessDenied;
    const HKEY root = predefined(key.hive);
    return root ? errorOf(::RegDeleteTreeA(root, path.c_str())) : SystemError::fileNotFound;
}

SystemError WindowsRegistryStore::deleteValue(const RegistryKey& key, std::string_view name) {
    const auto opened = openKey(key, KEY_SET_VALUE);
    return opened ? errorOf(::RegDeleteValueA(opened.value().get(), std::string(name).c_str()))
                  : opened.error();
}

Result<std::string> WindowsRegistryStore::readString(const RegistryKey& key, std::string_view name) {
    return stringIn(predefined(key.hive), key.path, name);
}

Result<std::string> WindowsRegistryStore::readAsText(const RegistryKey& key, std::string_view name) {
    DWORD number = 0;
    DWORD size = sizeof number;
    const auto opened = openKey(key, KEY_QUERY_VALUE);
    const bool isNumber =
        opened && ::RegGetValueW(opened.value().get(), nullptr, wideText(name).c_str(), RRF_RT_REG_DWORD,
                                 nullptr, &number, &size) == ERROR_SUCCESS;
    return isNumber ? Result(std::to_string(number)) : readString(key, name);
}

SystemError WindowsRegistryStore::writeString(const RegistryKey& key, std::string_view name,
                                              std::string_view value) {
    return setStringIn(predefined(key.hive), key.path, name, value);
}

Result<std::vector<std::string>> WindowsRegistryStore::subkeys(const RegistryKey& key) {
    const auto opened = openKey(key, KEY_ENUMERATE_SUB_KEYS);
    if (!opened)
        return opened.error();
    return enumerate([&](DWORD index, char* name, DWORD* size) {
        return ::RegEnumKeyExA(opened.value().get(), index, name, size, nullptr, nullptr, nullptr, nullptr);
    });
}

Result<std::vector<std::string>> WindowsRegistryStore::valueNames(const RegistryKey& key) {
    const auto opened = openKey(key, KEY_QUERY_VALUE);
    if (!opened)
        return opened.error();
    return enumerate([&](DWORD index, char* name, DWORD* size) {
        return ::RegEnumValueA(opened.value().get(), index, name, size, nullptr, nullptr, nullptr, nullptr);
    });
}

Result<std::string> WindowsRegistryStore::readRemoteString(const std::string& machine, const RegistryKey& key,
                                                           std::string_view name) {
    const auto root = connect(machine, key.hive);
    if (!root)
        return root.error();
    return stringIn(root.value().get(), key.path, name);
}

SystemError WindowsRegistryStore::writeRemoteString(const std::string& machine, const RegistryKey& key,
                                                    std::string_view name, std::string_view value) {
    const auto root = connect(machine, key.hive);
    return root ? setStringIn(root.value().get(), key.path, name, value) : root.error();
}

} // namespace qrtVistrelClasses4
