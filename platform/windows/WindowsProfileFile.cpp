#include "platform/windows/WindowsProfileFile.h"

#include "platform/windows/WindowsSystem.h"

namespace qrtVistrelClasses4 {

std::string WindowsProfileFile::read(std::string_view section, std::string_view key,
                                     std::string_view defaultValue, std::size_t bufferSize) {
    const NoSystemBoxes noBoxes;
    std::string buffer(bufferSize, '\0');
    const DWORD length = ::GetPrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                                    std::string(defaultValue).c_str(), buffer.data(),
                                                    static_cast<DWORD>(buffer.size()), path_.c_str());
    buffer.resize(length);
    return buffer;
}

void WindowsProfileFile::write(std::string_view section, std::string_view key, std::string_view value) {
    change(section, key, std::string(value).c_str());
}

void WindowsProfileFile::remove(std::string_view section, std::string_view key) {
    change(section, key, nullptr);
}

void WindowsProfileFile::change(std::string_view section, std::string_view key, const char* value) {
    const NoSystemBoxes noBoxes;
    const BOOL written = ::WritePrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                                      value, path_.c_str());
    if (!written && error_ == SystemError::none)
        error_ = lastSystemError();
}

SystemError WindowsProfileFile::commit() { return std::exchange(error_, SystemError::none); }

} // namespace qrtVistrelClasses4
