#pragma once

#include "platform/FileSystem.h"
#include "platform/TreeRegistryStore.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace qrtVistrelClasses4 {

/// The settings store in one text file. Several processes may use it at the same time: each change is made
/// under a lock, to the current file.
class PosixRegistryStore final : public TreeRegistryStore {
public:
    /// `files` must outlive this object. Before a change, `makeFolder` makes the folder of `path` if it is
    /// missing.
    PosixRegistryStore(FileSystem& files, std::string path, std::function<SystemError()> makeFolder)
        : files_(files), path_(std::move(path)), makeFolder_(std::move(makeFolder)) {}

private:
    /// Makes `tree_` the content of the file. False if that cannot be read.
    bool refresh();
    const RegistryTree& tree() override;
    SystemError change(const Edit& edit) override;

    FileSystem& files_;
    std::string path_;
    std::function<SystemError()> makeFolder_;
    RegistryTree tree_; ///< The file as it was read last.
    /// Of that version, or of no file. No value if a later change might not show in it.
    std::optional<FileStamp> stamp_;
};

} // namespace qrtVistrelClasses4
