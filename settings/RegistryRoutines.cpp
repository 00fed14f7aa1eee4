#include "settings/RegistryRoutines.h"

#include "frame/Traced.h"
#include "platform/NulTerminated.h"
#include "platform/Platform.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure registryFunction(std::string_view name) {
    return {"RegistryRoutines.cls", ProcedureKind::Function, name};
}

bool succeeded(SystemError error) { return error == SystemError::none; }

} // namespace

bool RegistryRoutines::KeyExists() {
    return traced(registryFunction("KeyExists"), [&] { return platform().registry().keyExists(key_); });
}

bool RegistryRoutines::CreateKey() {
    return traced(registryFunction("CreateKey"),
                  [&] { return succeeded(platform().registry().createKey(key_)); });
}

bool RegistryRoutines::DeleteKey() {
    return traced(registryFunction("DeleteKey"),
                  [&] { return succeeded(platform().registry().deleteKey(key_)); });
}

bool RegistryRoutines::DeleteValue(const std::string& ValueName) {
    return traced(
        registryFunction("DeleteValue"),
        [&] { return succeeded(platform().registry().deleteValue(key_, ValueName)); },
        Arg{"ValueName", ValueName});
}

std::vector<std::string> RegistryRoutines::EnumRegistryKeys() {
    return traced(registryFunction("EnumRegistryKeys"),
                  [&] { return platform().registry().subkeys(key_).valueOr({}); });
}

std::vector<std::string> RegistryRoutines::EnumRegistryValues() {
    return traced(registryFunction("EnumRegistryValues"),
                  [&] { return platform().registry().valueNames(key_).valueOr({}); });
}

std::optional<std::string> RegistryRoutines::FindRegistryValue(const std::string& ValueName,
                                                               const std::string& DefaultValue) {
    return traced(
        registryFunction("GetRegistryValue"),
        [&] {
            return std::optional(platform().registry().readString(key_, ValueName).valueOr(DefaultValue));
        },
        Arg{"ValueName", ValueName}, Arg{"DefaultValue", DefaultValue});
}

bool RegistryRoutines::SetRegistryValue(const std::string& ValueName, const std::string& Value) {
    return traced(
        registryFunction("SetRegistryValue"),
        [&] { return succeeded(platform().registry().writeString(key_, ValueName, Value)); },
        Arg{"ValueName", ValueName}, Arg{"Value", Value});
}

std::string RegistryRoutines::ReadRemoteRegistryValue(const std::string& MachineName,
                                                      const std::string& ValueName,
                                                      const std::string& DefaultValue) {
    return traced(
        registryFunction("ReadRemoteRegistryValue"),
        [&] {
            return platform().registry().readRemoteString(MachineName, key_, ValueName).valueOr(DefaultValue);
        },
        Arg{"MachineName", MachineName}, Arg{"ValueName", ValueName}, Arg{"DefaultValue", DefaultValue});
}

bool RegistryRoutines::WriteRemoteRegistryValue(const std::string& MachineName, const std::string& ValueName,
                                                const std::string& Value) {
    return traced(
        registryFunction("WriteRemoteRegistryValue"),
        [&] {
            return succeeded(platform().registry().writeRemoteString(MachineName, key_, ValueName, Value));
        },
        Arg{"MachineName", MachineName}, Arg{"ValueName", ValueName}, Arg{"Value", Value});
}

std::string RegistryRoutines::TrimNull(const std::string& Text) {
    return traced(
        registryFunction("TrimNull"), [&] { return std::string(UntilNul(Text)); }, Arg{"Text", Text});
}

} // namespace qrtVistrelClasses4
