#include "platform/posix/PosixRegistryStore.h"

#include "platform/ReplacementFile.h"
#include "platform/posix/PosixFolders.h"

#include <fcntl.h>

namespace qrtVistrelClasses4 {

bool PosixRegistryStore::isCurrent() const {
    struct stat now {};
    return file_ && ::stat(path_.c_str(), &now) == 0 && now.st_dev == status_.st_dev &&
           now.st_ino == status_.st_ino && now.st_size == status_.st_size &&
           now.st_mtim.tv_sec == status_.st_mtim.tv_sec && now.st_mtim.tv_nsec == status_.st_mtim.tv_nsec;
}

const RegistryTree& PosixRegistryStore::tree() {
    if (isCurrent())
        return tree_;
    // The time is taken before the bytes: a change in between makes the next look read again.
    Descriptor file = openDescriptor(path_, O_RDONLY | O_NONBLOCK);
    struct stat status {};
    if (file && ::fstat(file.number(), &status) != 0)
        file = Descriptor();
    const auto bytes = files_.read(path_);
    file_ = Descriptor(); // unless all goes well, the next look tries again
    const bool isMissing =
        bytes.error() == SystemError::fileNotFound || bytes.error() == SystemError::folderNotFound;
    if (!bytes && !isMissing)
        return tree_; // the last tree is better than none
    tree_ = bytes ? RegistryTree(bytes.value().text()) : RegistryTree();
    if (bytes) {
        file_ = std::move(file);
        status_ = status;
    }
    return tree_;
}

SystemError PosixRegistryStore::change(const Edit& edit) {
    const std::string folder = folderOf(path_);
    if (const auto error = makeFolders(files_, folder); error != SystemError::none)
        return error;
    const FolderLock lock(folder);
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
