// Routines for INI files: for a file that the caller names, and for the system's own.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// One section of an INI file that the caller names. Without a call of `Register`, reading and writing show a
/// critical message box; the result is then the default, and nothing is written.
class PrivateIni {
public:
    static constexpr std::string_view ClassName() { return "PrivateIni"; }

    /// Sets section and file for the calls that follow. Blanks around both are dropped.
    void Register(const std::string& Section, const std::string& FileName);
    /// The value as it is in the file now, cut to 254 characters; `DefaultValue` if it is missing.
    std::string Read(const std::string& Key, const std::string& DefaultValue);
    /// False if the file cannot be written.
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
