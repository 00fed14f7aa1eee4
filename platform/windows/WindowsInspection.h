#pragma once

#include "platform/FileSystem.h"
#include "platform/Inspection.h"

namespace qrtVistrelClasses4 {

class WindowsInspection final : public Inspection {
public:
    /// `files` must outlive this object.
    explicit WindowsInspection(FileSystem& files) : files_(files) {}

    std::string systemName() override;
    SystemError mayAddTo(const std::string& folder) override;
    std::vector<Bitness> registryViews() override;
    std::optional<std::string> registered(const RegistrationKey& key) override;
    SystemError mayChange(const RegistrationKey& key) override;
    Result<ModuleFacts> factsOf(const std::string& path) override;

private:
    FileSystem& files_;
};

} // namespace qrtVistrelClasses4
