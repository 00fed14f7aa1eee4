#include "platform/posix/PosixSystem.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {

int Descriptor::close() {
    // Never repeated: even an interrupted close has closed the file.
    const int result = number_ == -1 ? 0 : ::close(std::exchange(number_, -1));
    return result == -1 && errno != EINTR ? -1 : 0;
}

bool isUsableName(const std::string& path) {
    const bool isUsable = path.find('\0') == path.npos;
    if (!isUsable)
        errno = ENAMETOOLONG; // no file can have it
    return isUsable;
}

bool lookUp(const std::string& path, struct stat& status) {
    return isUsableName(path) && ::stat(path.c_str(), &status) == 0;
}

Descriptor openDescriptor(const std::string& path, int flags, unsigned mode) {
    if (!isUsableName(path))
        return {};
    return Descriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos)
        return ".";
    return path.substr(0, slash == 0 ? 1 : slash);
}

namespace {

SystemError missing(const std::string& path) {
    struct stat status {};
    const bool hasFolder = lookUp(folderOf(path), status) && S_ISDIR(status.st_mode);
    return hasFolder ? SystemError::fileNotFound : SystemError::folderNotFound;
}

} // namespace

SystemError errorOn(const std::string& path, int code) {
    switch (code) {
    case ENOENT:
    case ELOOP:
        return missing(path);
    case ENOTDIR:
    case ENAMETOOLONG:
        return SystemError::folderNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENXIO: // a pipe that nobody reads
        return SystemError::accessDenied;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
        return SystemError::inUse;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return SystemError::diskFull;
    case EEXIST:
    case ENOTEMPTY:
        return SystemError::alreadyExists;
    case EOVERFLOW:
    case ENOMEM:
        return SystemError::tooLarge;
    default:
        return SystemError::deviceFailure;
    }
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (written == -1)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool lockFile(int file, int operation) {
    constexpr int mostTries = 5000; // about as many milliseconds
    for (int tries = 0; ::flock(file, operation | LOCK_NB) != 0; ++tries) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true;
        if (tries == mostTries)
            return false;
        (void)::usleep(1000);
    }
    return true;
}

FolderLock::FolderLock(const std::string& folder) : folder_(openDescriptor(folder, O_RDONLY | O_DIRECTORY)) {
    if (folder_)
        (void)lockFile(folder_.number(), LOCK_EX);
}

} // namespace qrtVistrelClasses4
