#include "settings/RegistryRoutines.h"

#include "frame/Traced.h"
#include "platform/Platform.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure function(std::string_view name) {
    return {"RegistryRoutines.cls", ProcedureKind::Function, name};
}

bool succeeded(SystemError error) { return error == SystemError::none; }

} // namespace

bool RegistryRoutines::KeyExists() {
    return traced(function("KeyExists"), [&] { return platform().registry().keyExists(key_); });
}

bool RegistryRoutines::CreateKey() {
    return traced(function("CreateKey"), [&] { return succeeded(platform().registry().createKey(key_)); });
}

bool RegistryRoutines::DeleteKey() {
    return traced(function("DeleteKey"), [&] { return succeeded(platform().registry().deleteKey(key_)); });
}

bool RegistryRoutines::DeleteValue(const std::string& ValueName) {
    return traced(
        function("DeleteValue"),
        [&] { return succeeded(platform().registry().deleteValue(key_, ValueName)); },
        Arg{"ValueName", ValueName});
}

std::vector<std::string> RegistryRoutines::EnumRegistryKeys() {
    return traced(function("EnumRegistryKeys"), [&] { return platform().registry().subkeys(key_).value; });
}

std::vector<std::string> RegistryRoutines::EnumRegistryValues() {
    return traced(function("EnumRegistryValues"),
                  [&] { return platform().registry().valueNames(key_).value; });
}

std::string RegistryRoutines::GetRegistryValue(const std::string& ValueName,
                                               const std::string& DefaultValue) {
    return traced(
        function("GetRegistryValue"),
        [&] {
            auto found = platform().registry().readString(key_, ValueName);
            return found ? found.value : DefaultValue;
        },
        Arg{"ValueName", ValueName}, Arg{"DefaultValue", DefaultValue});
}

bool RegistryRoutines::SetRegistryValue(const std::string& ValueName, const std::string& Value) {
    return traced(
        function("SetRegistryValue"),
        [&] { return succeeded(platform().registry().writeString(key_, ValueName, Value)); },
        Arg{"ValueName", ValueName}, Arg{"Value", Value});
}

std::string RegistryRoutines::ReadRemoteRegistryValue(const std::string& MachineName,
                                                      const std::string& ValueName,
                                                      const std::string& DefaultValue) {
    return traced(
        function("ReadRemoteRegistryValue"),
        [&] {
            auto found = platform().registry().readRemoteString(MachineName, key_, ValueName);
            return found ? found.value : DefaultValue;
        },
        Arg{"MachineName", MachineName}, Arg{"ValueName", ValueName}, Arg{"DefaultValue", DefaultValue});
}

bool RegistryRoutines::WriteRemoteRegistryValue(const std::string& MachineName, const std::string& ValueName,
                                                const std::string& Value) {
    return traced(
        function("WriteRemoteRegistryValue"),
        [&] {
            return succeeded(platform().registry().writeRemoteString(MachineName, key_, ValueName, Value));
        },
        Arg{"MachineName", MachineName}, Arg{"ValueName", ValueName}, Arg{"Value", Value});
}

std::string RegistryRoutines::TrimNull(const std::string& Text) {
    return traced(
        function("TrimNull"), [&] { return Text.substr(0, Text.find('\0')); }, Arg{"Text", Text});
}

} // namespace qrtVistrelClasses4
