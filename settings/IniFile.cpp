#include "settings/IniFile.h"

#include "frame/Text.h"
#include "frame/Traced.h"
#include "platform/Platform.h"
#include "settings/OperatorMessages.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kBufferSize = 255;

constexpr Procedure iniProcedure(ProcedureKind kind, std::string_view name) {
    return {"modIniFile.bas", kind, name};
}

std::string readKey(const std::string& path, const std::string& section, const std::string& key,
                    const std::string& defaultValue) {
    return platform().openProfile(path)->read(section, key, defaultValue, kBufferSize);
}

bool writeKey(const std::string& path, const std::string& section, const std::string& key,
              const std::string& value) {
    const auto profile = platform().openProfile(path);
    profile->write(section, key, value);
    return profile->commit() == SystemError::none;
}

void showLogicError(const char* text) {
    ShowFailure(static_cast<int>(ErrorNumber::invalidProcedureCall), text, "IniFile Logic Error");
}

} // namespace

void PrivateIni::Register(const std::string& Section, const std::string& FileName) {
    traced(
        iniProcedure(ProcedureKind::Sub, "PrivateIniRegister"),
        [&] {
            section_ = Trim(Section);
            fileName_ = Trim(FileName);
        },
        Arg{"Section", Section}, Arg{"FileName", FileName});
}

std::string PrivateIni::Read(const std::string& Key, const std::string& DefaultValue) {
    return traced(
        iniProcedure(ProcedureKind::Function, "PrivateIniRead"),
        [&] { return isRegistered() ? readKey(fileName_, section_, Key, DefaultValue) : DefaultValue; },
        Arg{"Key", Key}, Arg{"DefaultValue", DefaultValue});
}

bool PrivateIni::Write(const std::string& Key, const std::string& Value) {
    return traced(
        iniProcedure(ProcedureKind::Function, "PrivateIniWrite"),
        [&] { return isRegistered() && writeKey(fileName_, section_, Key, Value); }, Arg{"Key", Key},
        Arg{"Value", Value});
}

bool PrivateIni::isRegistered() {
    if (!section_.empty() && !fileName_.empty())
        return true;
    showLogicError("[Section] and FileName Not Registered in Private.Ini!");
    return false;
}

void SystemIni::Register(const std::string& Section) {
    traced(
        iniProcedure(ProcedureKind::Sub, "WinIniRegister"), [&] { section_ = Trim(Section); },
        Arg{"Section", Section});
}

std::string SystemIni::Read(const std::string& Key, const std::string& DefaultValue) {
    return traced(
        iniProcedure(ProcedureKind::Function, "WinIniRead"),
        [&] {
            return isRegistered() ? readKey(platform().systemProfilePath(), section_, Key, DefaultValue)
                                  : DefaultValue;
        },
        Arg{"Key", Key}, Arg{"DefaultValue", DefaultValue});
}

bool SystemIni::Write(const std::string& Key, const std::string& Value) {
    return traced(
        iniProcedure(ProcedureKind::Function, "WinIniWrite"),
        [&] { return isRegistered() && writeKey(platform().systemProfilePath(), section_, Key, Value); },
        Arg{"Key", Key}, Arg{"Value", Value});
}

bool SystemIni::isRegistered() {
    if (!section_.empty())
        return true;
    showLogicError("[Section] Not Registered in Win.Ini!");
    return false;
}

} // namespace qrtVistrelClasses4
