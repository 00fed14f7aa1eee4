#pragma once

#include "platform/FileSystem.h"
#include "platform/Home.h"

#include <utility>

namespace qrtVistrelClasses4 {

class WindowsFileSystem final : public FileSystem {
public:
    explicit WindowsFileSystem(OwnFolders ownFolders = {}) : ownFolders_(std::move(ownFolders)) {}

    EntryKind kindOf(const std::string& path) override;
    bool hasEntry(const std::string& path) override;
    Result<std::uint64_t> sizeOf(const std::string& path) override;
    Result<FileBytes> read(const std::string& path) override;
    Result<std::unique_ptr<InputFile>> openToRead(const std::string& path) override;
    Result<std::unique_ptr<OutputFile>> open(const std::string& path, OpenMode mode) override;
    Result<TemporaryFile> createBeside(const std::string& path) override;
    SystemError mayWrite(const std::string& path) override;
    SystemError moveOver(const std::string& from, const std::string& to) override;
    /// Renames are written through, so there is nothing left to do.
    SystemError flushFolder(const std::string&) override { return SystemError::none; }
    SystemError remove(const std::string& path) override;
    Result<std::unique_ptr<FolderLock>> lockFolderOf(const std::string& path) override;
    SystemError createFolder(const std::string& path) override;
    SystemError copy(const std::string& from, const std::string& to) override;
    SystemError removeLink(const std::string& path) override;
    std::string resolveLinks(const std::string& path) override;
    std::string fullName(const std::string& path) override;
    std::string existingName(const std::string& path) override;
    std::vector<std::string> namesIn(const std::string& folder) override;
    Drive driveOf(const std::string& path) override;
    bool isFixed(const Drive& drive) override;

private:
    /// Makes the folder of `path` if it is one of the library's own and missing.
    SystemError makeOwnFolderOf(const std::string& path);

    OwnFolders ownFolders_;
};

} // namespace qrtVistrelClasses4
