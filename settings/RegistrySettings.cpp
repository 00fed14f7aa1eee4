#include "settings/RegistrySettings.h"

#include "frame/Traced.h"
#include "settings/RegistryRoutines.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kModule = "modRegistry.bas";

std::string applicationKey(const std::string& application) {
    return std::string(kSettingsKey) + "\\" + application;
}
std::string sectionKey(const std::string& application, const std::string& section) {
    return applicationKey(application) + "\\" + section;
}

} // namespace

std::optional<std::string> FindSetting(const std::string& Application, const std::string& Section,
                                       const std::string& ValueName, const std::string& DefaultValue) {
    return traced(
        {kModule, ProcedureKind::Function, "ReadSetting"},
        [&] {
            RegistryRoutines registry;
            registry.hKey(RegistryHive::localMachine);
            registry.Subkey(sectionKey(Application, Section));
            return registry.FindRegistryValue(ValueName, DefaultValue);
        },
        Arg{"Application", Application}, Arg{"Section", Section}, Arg{"ValueName", ValueName},
        Arg{"DefaultValue", DefaultValue});
}

std::string ReadSetting(const std::string& Application, const std::string& Section,
                        const std::string& ValueName, const std::string& DefaultValue) {
    return FindSetting(Application, Section, ValueName, DefaultValue).value_or("");
}

void WriteSetting(const std::string& Application, const std::string& Section, const std::string& ValueName,
                  const std::string& Value) {
    traced(
        {kModule, ProcedureKind::Sub, "WriteSetting"},
        [&] {
            RegistryRoutines registry;
            registry.hKey(RegistryHive::localMachine);
            registry.Subkey(applicationKey(Application));
            registry.CreateKey();
            registry.Subkey(sectionKey(Application, Section));
            registry.SetRegistryValue(ValueName, Value);
        },
        Arg{"Application", Application}, Arg{"Section", Section}, Arg{"ValueName", ValueName},
        Arg{"Value", Value});
}

} // namespace qrtVistrelClasses4
