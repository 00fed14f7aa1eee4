#pragma once

#include "platform/FileSystem.h"
#include "platform/TreeRegistryStore.h"
#include "platform/posix/PosixSystem.h"

#include <string>
#include <sys/stat.h>

namespace qrtVistrelClasses4 {

/// The settings store in one text file. Several processes may use it at the same time: each change is made
/// under a lock to the file as it is then.
class PosixRegistryStore final : public TreeRegistryStore {
public:
    /// `files` must outlive this object. The folder of `path` is made by the first change.
    PosixRegistryStore(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

private:
    const RegistryTree& tree() override;
    SystemError change(const Edit& edit) override;
    bool isCurrent() const;

    FileSystem& files_;
    std::string path_;
    RegistryTree tree_; ///< The file as read last.
    /// That file, kept open so that its inode number is not given to a newer version of it.
    Descriptor file_;
    struct stat status_ {};
};

} // namespace qrtVistrelClasses4
