#include "platform/ReplacementFile.h"

#include "platform/Path.h"

#include <utility>

namespace qrtVistrelClasses4 {

ReplacementFile::ReplacementFile(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)) {
    if (auto beside = files_.createBeside(path_)) {
        path_ = std::move(beside.value().target);
        temporaryPath_ = std::move(beside.value().path);
        file_ = std::move(beside.value().file);
    } else if (beside.error() == SystemError::accessDenied && files_.mayWrite(path_) == SystemError::none &&
               files_.kindOf(path_) == EntryKind::file) {
        inPlace_ = true;
    } else {
        error_ = beside.error();
    }
}

ReplacementFile::~ReplacementFile() {
    file_.reset();
    if (!temporaryPath_.empty())
        (void)files_.remove(temporaryPath_); // nothing better can be done about a failure here
}

SystemError ReplacementFile::write(std::string_view bytes) {
    if (error_ != SystemError::none)
        return error_;
    if (!inPlace_)
        return note(file_->write(bytes));
    bytesInPlace_ += bytes;
    return SystemError::none;
}

SystemError ReplacementFile::commit() {
    // The new file is in place whatever becomes of this: some file systems cannot flush a folder.
    if (commitUnflushed() == SystemError::none && !inPlace_)
        (void)files_.flushFolder(std::string(SplitPath(path_).folder));
    return error_;
}

SystemError ReplacementFile::commitUnflushed() {
    if (error_ != SystemError::none)
        return error_;
    if (inPlace_)
        return writeInPlace();
    // The new bytes must be on the disk before the name points to them.
    if (note(file_->flush()) != SystemError::none || note(file_->close()) != SystemError::none)
        return error_;
    file_.reset();
    if (note(files_.moveOver(temporaryPath_, path_)) == SystemError::none)
        temporaryPath_.clear();
    return error_;
}

SystemError ReplacementFile::writeInPlace() {
    const auto file = files_.open(path_, OpenMode::replace);
    if (note(file.error()) == SystemError::none &&
        note(file.value()->write(bytesInPlace_)) == SystemError::none &&
        note(file.value()->flush()) == SystemError::none)
        (void)note(file.value()->close());
    return error_;
}

SystemError ReplacementFile::note(SystemError result) {
    if (error_ == SystemError::none)
        error_ = result;
    return result;
}

} // namespace qrtVistrelClasses4
