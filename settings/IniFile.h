// General routines for INI files: one that the caller names, and the system's own.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// One section of an INI file of the caller's. Reading or writing before `Register` shows a critical message
/// box, and reads the default or writes nothing.
class PrivateIni {
public:
    static constexpr std::string_view ClassName() { return "PrivateIni"; }

    /// Notes section and file for the calls that follow; blanks around both are dropped.
    void Register(const std::string& Section, const std::string& FileName);
    /// The value as it is in the file now, cut to 254 characters; `DefaultValue` when it is missing.
    std::string Read(const std::string& Key, const std::string& DefaultValue);
    /// False when the file cannot be written.
    bool Write(const std::string& Key, const std::string& Value);

private:
    bool isRegistered();

    std::string section_;
    std::string fileName_;
};

/// The same for a section of the system's own INI file.
class SystemIni {
public:
    static constexpr std::string_view ClassName() { return "SystemIni"; }

    void Register(const std::string& Section);
    std::string Read(const std::string& Key, const std::string& DefaultValue);
    bool Write(const std::string& Key, const std::string& Value);

private:
    bool isRegistered();

    std::string section_;
};

} // namespace qrtVistrelClasses4
