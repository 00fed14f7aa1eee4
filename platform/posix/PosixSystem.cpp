#include "platform/posix/PosixSystem.h"

#include "platform/Path.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

constexpr long kNanosecondsASecond = 1'000'000'000;

std::uint64_t nanoseconds(std::int64_t seconds, std::int64_t rest) {
    return static_cast<std::uint64_t>(seconds) * kNanosecondsASecond + static_cast<std::uint64_t>(rest);
}

} // namespace

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

bool lookAt(const std::string& path, struct stat& status) {
    return isUsableName(path) && ::lstat(path.c_str(), &status) == 0;
}

FileStamp stampOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            nanoseconds(status.st_mtim.tv_sec, status.st_mtim.tv_nsec),
            nanoseconds(status.st_ctim.tv_sec, status.st_ctim.tv_nsec)};
}

std::optional<FileStamp> currentStamp(const std::string& path) {
    struct statx status {};
    if (!isUsableName(path))
        return std::nullopt;
    // A network drive would answer a plain `stat` with what it knew seconds ago.
    if (::statx(AT_FDCWD, path.c_str(), AT_STATX_FORCE_SYNC, STATX_BASIC_STATS, &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? std::optional<FileStamp>(std::in_place) : std::nullopt;
    return FileStamp{makedev(status.stx_dev_major, status.stx_dev_minor), status.stx_ino, status.stx_size,
                     nanoseconds(status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec),
                     nanoseconds(status.stx_ctime.tv_sec, status.stx_ctime.tv_nsec)};
}

bool isOlderThanClockStep(const struct stat& status, timespec now) {
    constexpr long longestTick = 2 * kNanosecondsASecond / 100;
    const bool hasWholeSeconds = status.st_mtim.tv_nsec == 0 || status.st_ctim.tv_nsec == 0;
    now.tv_sec -= hasWholeSeconds ? 2 : 0; // FAT has even ones only
    now.tv_nsec -= longestTick;
    if (now.tv_nsec < 0) {
        now.tv_nsec += kNanosecondsASecond;
        --now.tv_sec;
    }
    const auto isOlder = [&](const timespec& time) {
        return std::pair(time.tv_sec, time.tv_nsec) < std::pair(now.tv_sec, now.tv_nsec);
    };
    return isOlder(status.st_mtim) && isOlder(status.st_ctim);
}

Descriptor openDescriptor(const std::string& path, int flags, unsigned mode) {
    if (!isUsableName(path))
        return {};
    return Descriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

namespace {

SystemError missing(const std::string& path) {
    struct stat status {};
    const bool hasFolder = lookUp(FolderOf(path), status) && S_ISDIR(status.st_mode);
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

bool flushToDisk(int file) {
    return uninterrupted([&] { return ::fsync(file); }) == 0;
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

PosixFolderLock::PosixFolderLock(const std::string& folder)
    : folder_(openDescriptor(folder, O_RDONLY | O_DIRECTORY)) {
    if (folder_)
        (void)lockFile(folder_.number(), LOCK_EX);
}

} // namespace qrtVistrelClasses4
