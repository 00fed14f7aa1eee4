#include "platform/posix/PosixRegistryStore.h"

#include "platform/ReplacementFile.h"
#include "platform/posix/PosixSystem.h"

namespace qrtVistrelClasses4 {

const RegistryTree& PosixRegistryStore::tree() {
    if (stamp_ && currentStamp(path_) == stamp_)
        return tree_;
    stamp_.reset(); // unless all goes well, the next look reads again
    FileStamp stamp;
    const auto bytes = files_.readIfChanged(path_, stamp);
    const bool isMissing =
        bytes.error() == SystemError::fileNotFound || bytes.error() == SystemError::folderNotFound;
    if (!bytes && !isMissing)
        return tree_; // the last tree is better than none
    tree_ = bytes ? RegistryTree(bytes.value()->text()) : RegistryTree();
    if (isMissing || stamp != FileStamp())
        stamp_ = stamp;
    return tree_;
}

SystemError PosixRegistryStore::change(const Edit& edit) {
    if (const auto error = makeFolder_(); error != SystemError::none)
        return error;
    const FolderLock lock(folderOf(path_));
    const auto bytes = files_.read(path_);
    if (!bytes && bytes.error() != SystemError::fileNotFound)
        return bytes.error();
    RegistryTree tree(bytes ? bytes.value().text() : std::string_view());
    const std::string before = tree.text();
    if (const auto error = edit(tree); error != SystemError::none)
        return error;
    const std::string after = tree.text();
    if (after == before)
        return SystemError::none;
    ReplacementFile file(files_, path_);
    (void)file.write(after); // `commit` reports an error of this
    return file.commit();
}

} // namespace qrtVistrelClasses4
