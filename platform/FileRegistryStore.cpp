#include "platform/FileRegistryStore.h"

#include "platform/ReplacementFile.h"

namespace qrtVistrelClasses4 {

bool FileRegistryStore::refresh() {
    const auto bytes = files_.readIfChanged(path_, stamp_);
    const bool isMissing =
        bytes.error() == SystemError::fileNotFound || bytes.error() == SystemError::folderNotFound;
    if (!bytes && !isMissing)
        return false;
    if (isMissing)
        tree_ = RegistryTree();
    else if (bytes.value())
        tree_ = RegistryTree(bytes.value()->text());
    return true;
}

const RegistryTree& FileRegistryStore::tree() {
    if (!refresh()) { // perhaps because another process is replacing the file at this moment
        const auto lock = files_.lockFolderOf(path_);
        (void)refresh(); // or else the last tree is better than none
    }
    return tree_;
}

SystemError FileRegistryStore::change(const Edit& edit) {
    if (refresh()) { // most changes leave everything as it is, which takes no lock
        RegistryTree changed = tree_;
        if (edit(changed) == SystemError::none && changed == tree_)
            return SystemError::none;
    }
    const auto lock = files_.lockFolderOf(path_);
    if (!lock)
        return lock.error();
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
