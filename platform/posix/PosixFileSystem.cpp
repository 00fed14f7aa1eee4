#include "platform/posix/PosixFileSystem.h"

#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/ReplacementFile.h"
#include "platform/TemporaryFiles.h"
#include "platform/TemporaryName.h"
#include "platform/posix/PosixFolders.h"
#include "platform/posix/PosixSystem.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <optional>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 31;
/// Rights of a new file, before the user's mask.
constexpr unsigned kNewFileMode = 0666;
/// Opening a pipe would wait for somebody at its other end.
constexpr int kNeverWait = O_NONBLOCK;

class PosixOutputFile final : public OutputFile {
public:
    explicit PosixOutputFile(std::string path) : path_(std::move(path)) {}

    /// False with `errno` set.
    bool open(int flags, unsigned mode) {
        file_ = openDescriptor(path_, flags, mode);
        return static_cast<bool>(file_);
    }
    int descriptor() const { return file_.number(); }

    SystemError write(std::string_view bytes) override;
    SystemError flush() override;
    SystemError close() override { return file_.close() == 0 ? SystemError::none : errorOn(path_); }

private:
    Descriptor file_;
    std::string path_;
};

SystemError PosixOutputFile::write(std::string_view bytes) {
    return writeAll(file_.number(), bytes) ? SystemError::none : errorOn(path_);
}

SystemError PosixOutputFile::flush() {
    if (flushToDisk(file_.number()))
        return SystemError::none;
    // Some file systems have nothing to flush.
    return errno == EINVAL || errno == ENOTSUP ? SystemError::none : errorOn(path_);
}

/// The file `path` opened for reading, when it is a plain one.
struct Source {
    Descriptor file;
    struct stat status {};
};

Result<Source> openSource(const std::string& path) {
    Source source;
    source.file = openDescriptor(path, O_RDONLY | kNeverWait);
    if (!source.file || ::fstat(source.file.number(), &source.status) != 0)
        return errorOn(path);
    if (!S_ISREG(source.status.st_mode))
        return SystemError::accessDenied;
    return source;
}

class PosixInputFile final : public InputFile {
public:
    PosixInputFile(Source source, std::string path) : source_(std::move(source)), path_(std::move(path)) {}

    std::uint64_t size() const override { return static_cast<std::uint64_t>(source_.status.st_size); }
    Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
        std::size_t used = 0;
        while (used < bytes.size()) {
            const ssize_t count = uninterrupted([&] {
                return ::pread(source_.file.number(), bytes.data() + used, bytes.size() - used,
                               static_cast<off_t>(offset + used));
            });
            if (count == -1)
                return errorOn(path_);
            if (count == 0)
                break;
            used += static_cast<std::size_t>(count);
        }
        return used;
    }

private:
    Source source_;
    std::string path_;
};

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

FileBytes makeBytes(std::size_t capacity) { return {std::make_unique_for_overwrite<char[]>(capacity), 0}; }

/// Reads to the end of the file, which may have grown or shrunk since its size was read. Some files of the
/// system hide their size.
Result<FileBytes> readToEnd(int file, std::size_t expectedSize, const std::string& path) {
    std::size_t capacity = expectedSize + 1; // then the end is found without more room
    FileBytes bytes = makeBytes(capacity);
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return ::read(file, bytes.data.get() + bytes.size, capacity - bytes.size); });
        if (count == -1)
            return errorOn(path);
        if (count == 0)
            return bytes;
        bytes.size += static_cast<std::size_t>(count);
        if (bytes.size == expectedSize)
            return bytes; // there was room for more
        if (bytes.size > kLargestFile)
            return SystemError::tooLarge;
        if (bytes.size == capacity) {
            capacity *= 2;
            FileBytes larger = makeBytes(capacity);
            larger.size = bytes.text().copy(larger.data.get(), bytes.size);
            bytes = std::move(larger);
        }
    }
}

/// Reads the whole file when nobody has it open to replace it.
Result<FileBytes> readLocked(const Source& source, const std::string& path) {
    if (!lockFile(source.file.number(), LOCK_SH))
        return SystemError::inUse;
    const auto size = static_cast<std::size_t>(source.status.st_size);
    if (size > kLargestFile)
        return SystemError::tooLarge;
    return readToEnd(source.file.number(), size, path);
}

/// The rights to make a new version of a file with. It may get another group than the old one has. Until that
/// is mended, everybody but its owner may only do what both that group and all others may.
unsigned firstRights(const struct stat& old) {
    const unsigned common = old.st_mode & old.st_mode >> 3 & 7;
    return (old.st_mode & 0700) | common << 3 | common;
}

/// Gives a new file the rights of the one it will replace, as far as this user may.
void takeOverRights(int file, const struct stat& old) {
    struct stat now {};
    if (::fstat(file, &now) != 0)
        return;
    if (now.st_uid != old.st_uid || now.st_gid != old.st_gid)
        if (::fchown(file, old.st_uid, old.st_gid) != 0)
            (void)!::fchown(file, static_cast<uid_t>(-1), old.st_gid);
    if ((now.st_mode & 0777) != (old.st_mode & 0777))
        (void)::fchmod(file, old.st_mode & 0777);
}

/// Answers `mayWrite` after a look at `path`, which has found that status, or nothing and has set `errno`.
SystemError mayWriteThere(const std::string& path, const struct stat* found) {
    if (!found) {
        const SystemError error = errorOn(path);
        return error == SystemError::fileNotFound ? SystemError::none : error;
    }
    if (!S_ISREG(found->st_mode))
        return SystemError::accessDenied;
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? SystemError::none : errorOn(path);
}

/// Holds back the signals that end a program, so that it can finish what one of them must find done.
class HeldSignals {
public:
    HeldSignals() {
        sigset_t held{};
        (void)::sigemptyset(&held);
        for (const int signal : kEndingSignals)
            (void)::sigaddset(&held, signal);
        (void)::pthread_sigmask(SIG_BLOCK, &held, &before_);
    }
    ~HeldSignals() { (void)::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    sigset_t before_{};
};

SystemError copyBytes(const Source& source, const std::string& from, ReplacementFile& target) {
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return ::read(source.file.number(), buffer.data(), buffer.size()); });
        if (count == -1)
            return errorOn(from);
        if (count == 0)
            return SystemError::none;
        if (const auto error = target.write({buffer.data(), static_cast<std::size_t>(count)});
            error != SystemError::none)
            return error;
    }
}

} // namespace

SystemError PosixFileSystem::makeOwnFolderOf(const std::string& path) {
    return ownFolders_.lackThatOf(*this, path) ? makePrivateFoldersAbove(path) : SystemError::none;
}

EntryKind PosixFileSystem::kindOf(const std::string& path) {
    struct stat status {};
    if (!lookUp(path, status))
        return EntryKind::missing;
    if (S_ISREG(status.st_mode))
        return EntryKind::file;
    if (S_ISDIR(status.st_mode))
        return EntryKind::folder;
    return S_ISFIFO(status.st_mode) ? EntryKind::pipe : EntryKind::other;
}

bool PosixFileSystem::hasEntry(const std::string& path) {
    struct stat status {};
    return lookAt(path, status);
}

Result<std::uint64_t> PosixFileSystem::sizeOf(const std::string& path) {
    struct stat status {};
    if (!lookUp(path, status))
        return ownFolders_.answer(*this, path, errorOn(path));
    if (!S_ISREG(status.st_mode))
        return SystemError::accessDenied;
    return static_cast<std::uint64_t>(status.st_size);
}

Result<FileBytes> PosixFileSystem::read(const std::string& path) {
    const auto source = openSource(path);
    if (!source)
        return ownFolders_.answer(*this, path, source.error());
    return readLocked(source.value(), path);
}

Result<std::optional<FileBytes>> PosixFileSystem::readIfChanged(const std::string& path, FileStamp& stamp) {
    if (stamp != FileStamp() && currentStamp(path) == stamp)
        return std::optional<FileBytes>();
    stamp = {};
    timespec now{};
    (void)::clock_gettime(CLOCK_REALTIME, &now); // before the file is opened: a change after that must show
    const auto source = openSource(path);
    if (!source)
        return ownFolders_.answer(*this, path, source.error());
    Result<FileBytes> bytes = readLocked(source.value(), path);
    if (!bytes)
        return bytes.error();
    if (isOlderThanClockStep(source.value().status, now))
        stamp = stampOf(source.value().status);
    return std::optional(std::move(bytes).value());
}

Result<std::unique_ptr<InputFile>> PosixFileSystem::openToRead(const std::string& path) {
    auto source = openSource(path);
    if (!source)
        return ownFolders_.answer(*this, path, source.error());
    return std::unique_ptr<InputFile>(std::make_unique<PosixInputFile>(std::move(source.value()), path));
}

Result<std::unique_ptr<OutputFile>> PosixFileSystem::open(const std::string& path, OpenMode mode) {
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    auto file = std::make_unique<PosixOutputFile>(path);
    const int modeFlags = mode == OpenMode::append ? O_APPEND | O_NOFOLLOW : 0;
    struct stat status {};
    if (!file->open(O_WRONLY | O_CREAT | kNeverWait | modeFlags, kNewFileMode) ||
        ::fstat(file->descriptor(), &status) != 0)
        return errno == ELOOP && mode == OpenMode::append ? SystemError::accessDenied : errorOn(path);
    if (!S_ISREG(status.st_mode))
        return SystemError::accessDenied;
    if (mode == OpenMode::replace) {
        if (!lockFile(file->descriptor(), LOCK_EX))
            return SystemError::inUse;
        if (::ftruncate(file->descriptor(), 0) != 0)
            return errorOn(path);
    }
    return std::unique_ptr<OutputFile>(std::move(file));
}

Result<TemporaryFile> PosixFileSystem::createBeside(const std::string& path) {
    std::string target = path;
    struct stat old {};
    bool replaces = lookAt(path, old);
    if (!replaces) {
        if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
            return error;
        replaces = lookAt(path, old);
    }
    if (replaces && S_ISLNK(old.st_mode)) {
        target = resolveLinks(path);
        replaces = lookUp(target, old);
    }
    // A rename would also replace a file that its owner has protected, so ask first.
    if (const auto error = mayWriteThere(target, replaces ? &old : nullptr); error != SystemError::none)
        return error;
    const std::string folder = target.substr(0, target.rfind('/') + 1); // "" without one
    for (;;) {
        std::string name = folder + TemporaryName();
        auto file = std::make_unique<PosixOutputFile>(name);
        std::optional<HeldSignals> untilNoted;
        if (AreTemporaryFilesNoted())
            untilNoted.emplace();
        const bool isOpen =
            file->open(O_WRONLY | O_CREAT | O_EXCL, replaces ? firstRights(old) : kNewFileMode);
        if (!isOpen && errno == EEXIST)
            continue;
        if (!isOpen)
            return errorOn(name);
        NoteTemporaryFile(name);
        untilNoted.reset();
        if (replaces)
            takeOverRights(file->descriptor(), old);
        return TemporaryFile{std::move(name), std::move(file), std::move(target)};
    }
}

SystemError PosixFileSystem::mayWrite(const std::string& path) {
    struct stat status {};
    const SystemError error = mayWriteThere(path, lookUp(path, status) ? &status : nullptr);
    return ownFolders_.answer(*this, path, error) == SystemError::fileNotFound ? SystemError::none : error;
}

SystemError PosixFileSystem::moveOver(const std::string& from, const std::string& to) {
    if (!isUsableName(from) || !isUsableName(to) || ::rename(from.c_str(), to.c_str()) != 0)
        return errorOn(from);
    ForgetTemporaryFile(from);
    return SystemError::none;
}

SystemError PosixFileSystem::flushFolder(const std::string& folder) {
    const Descriptor opened = openDescriptor(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (!opened)
        return errorOn(folder);
    return flushToDisk(opened.number()) ? SystemError::none : errorOn(folder);
}

SystemError PosixFileSystem::remove(const std::string& path) {
    if (!isUsableName(path) || ::unlink(path.c_str()) != 0)
        return errorOn(path);
    ForgetTemporaryFile(path);
    return SystemError::none;
}

Result<std::unique_ptr<FolderLock>> PosixFileSystem::lockFolderOf(const std::string& path) {
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    return std::unique_ptr<FolderLock>(std::make_unique<PosixFolderLock>(FolderOf(path)));
}

SystemError PosixFileSystem::createFolder(const std::string& path) {
    if (const auto error = makeOwnFolderOf(path); error != SystemError::none)
        return error;
    if (!isUsableName(path) || ::mkdir(path.c_str(), 0777) != 0)
        return errorOn(path);
    (void)flushFolder(FolderOf(path)); // a power cut must not remove it with what is saved in it
    return SystemError::none;
}

SystemError PosixFileSystem::copy(const std::string& from, const std::string& to) {
    const auto source = openSource(from);
    if (!source)
        return source.error();
    struct stat target {};
    if (lookUp(to, target) && isSameFile(source.value().status, target))
        return SystemError::none;
    ReplacementFile file(*this, to);
    if (const auto error = copyBytes(source.value(), from, file); error != SystemError::none)
        return error;
    return file.commit();
}

SystemError PosixFileSystem::removeLink(const std::string& path) {
    struct stat status {};
    if (!lookAt(path, status) || !S_ISLNK(status.st_mode))
        return SystemError::none;
    return remove(path);
}

std::string PosixFileSystem::resolveLinks(const std::string& path) {
    struct stat status {};
    if (!lookAt(path, status) || !S_ISLNK(status.st_mode))
        return path;
    std::array<char, PATH_MAX> resolved;
    if (::realpath(path.c_str(), resolved.data()))
        return resolved.data();
    // The link leads to a file that does not exist yet. A link to itself fails in another way.
    const ssize_t size = errno == ENOENT ? ::readlink(path.c_str(), resolved.data(), resolved.size()) : -1;
    if (size <= 0)
        return path;
    const std::string target(resolved.data(), static_cast<std::size_t>(size));
    return resolveLinks(IsRootedPath(target) ? target : JoinPath(FolderOf(path), target));
}

std::string PosixFileSystem::fullName(const std::string& path) {
    std::array<char, PATH_MAX> folder;
    if (IsRootedPath(path) || !::getcwd(folder.data(), folder.size()))
        return path;
    return JoinPath(folder.data(), path);
}

std::string PosixFileSystem::existingName(const std::string& path) { return FindExistingName(*this, path); }

std::vector<std::string> PosixFileSystem::namesIn(const std::string& folder) {
    std::vector<std::string> names;
    if (!isUsableName(folder))
        return names;
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(::opendir(folder.empty() ? "." : folder.c_str()),
                                                     &::closedir);
    while (const dirent* entry = opened ? ::readdir(opened.get()) : nullptr)
        names.emplace_back(entry->d_name);
    return names;
}

} // namespace qrtVistrelClasses4
