#include "platform/posix/PosixRegistryStore.h"

#include "platform/ReplacementFile.h"
#include "platform/posix/PosixSystem.h"

namespace qrtVistrelClasses4 {

bool PosixRegistryStore::refresh() {
    if (stamp_ && currentStamp(path_) == stamp_)
        return true;
    stamp_.reset(); // unless all goes well, the next look reads again
    FileStamp stamp;
    const auto bytes = files_.readIfChanged(path_, stamp);
    const bool isMissing =
        bytes.error() == SystemError::fileNotFound || bytes.error() == SystemError::folderNotFound;
    if (!bytes && !isMissing)
        return false;
    tree_ = bytes ? RegistryTree(bytes.value()->text()) : RegistryTree();
    if (isMissing || stamp != FileStamp())
        stamp_ = stamp;
    return true;
}

const RegistryTree& PosixRegistryStore::tree() {
    (void)refresh(); // the last tree is better than none
    return tree_;
}

SystemError PosixRegistryStore::change(const Edit& edit) {
    if (refresh()) { // most changes leave everything as it is, which takes no lock
        RegistryTree changed = tree_;
        if (edit(changed) == SystemError::none && changed == tree_)
            return SystemError::none;
    }
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
