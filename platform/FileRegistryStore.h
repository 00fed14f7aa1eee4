#pragma once

#include "platform/FileSystem.h"
#include "platform/TreeRegistryStore.h"

#include <string>
#include <utility>

namespace qrtVistrelClasses4 {

/// The settings store in one text file. Several processes may use it at the same time: each change is made
/// under a lock, to the current file.
class FileRegistryStore final : public TreeRegistryStore {
public:
    /// `files` must outlive this object.
    FileRegistryStore(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

    std::string file() override { return path_; }

private:
    /// Makes `tree_` the content of the file. False if that cannot be read.
    bool refresh();
    const RegistryTree& tree() override;
    SystemError change(const Edit& edit) override;

    FileSystem& files_;
    std::string path_;
    RegistryTree tree_; ///< The file as it was read last.
    FileStamp stamp_;   ///< Of that version.
};

} // namespace qrtVistrelClasses4
