#pragma once

#include "platform/FileSystem.h"

#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// Folders of the library's own exist only once something is written in them. Until then they are treated as
/// empty folders: a file in them is missing, and not its folder.
class PosixFileSystem final : public FileSystem {
public:
    explicit PosixFileSystem(std::vector<std::string> ownFolders = {}) : ownFolders_(std::move(ownFolders)) {}

    /// Makes the folder of `path` if it is one of the library's own and missing. Writing does it, too, but a
    /// lock of the folder needs it earlier.
    SystemError makeOwnFolderOf(const std::string& path) const;

    EntryKind kindOf(const std::string& path) override;
    bool hasEntry(const std::string& path) override;
    Result<std::uint64_t> sizeOf(const std::string& path) override;
    Result<FileBytes> read(const std::string& path) override;
    Result<std::optional<FileBytes>> readIfChanged(const std::string& path, FileStamp& stamp) override;
    Result<std::unique_ptr<InputFile>> openToRead(const std::string& path) override;
    Result<std::unique_ptr<OutputFile>> open(const std::string& path, OpenMode mode) override;
    Result<TemporaryFile> createBeside(const std::string& path) override;
    SystemError mayWrite(const std::string& path) override;
    SystemError moveOver(const std::string& from, const std::string& to) override;
    SystemError flushFolder(const std::string& folder) override;
    SystemError remove(const std::string& path) override;
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
    /// Whether `path` is in a folder of the library's own that does not exist yet.
    bool isInFolderToMake(const std::string& path) const;
    /// The meaning of `error`, the system's answer to a look at `path`.
    SystemError answer(const std::string& path, SystemError error) const;

    std::vector<std::string> ownFolders_;
};

} // namespace qrtVistrelClasses4
