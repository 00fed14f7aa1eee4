#pragma once

#include "platform/ProfileFile.h"

namespace qrtVistrelClasses4 {

/// Hands every call straight to the system, which keeps the file.
class WindowsProfileFile final : public ProfileFile {
public:
    explicit WindowsProfileFile(std::string path) : path_(std::move(path)) {}

    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t bufferSize) override;
    void write(std::string_view section, std::string_view key, std::string_view value) override;
    void remove(std::string_view section, std::string_view key) override;
    SystemError commit() override;

private:
    void change(std::string_view section, std::string_view key, const char* value);

    std::string path_;
    SystemError error_ = SystemError::none; ///< The first since the last `commit`.
};

} // namespace qrtVistrelClasses4
