// Small helpers for system calls.
#pragma once

#include "platform/FileSystem.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace qrtVistrelClasses4 {

/// Repeats a system call while signals interrupt it.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// The signals by which a user or the system ends a program.
inline constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// An open file or folder, which the destructor closes. The number is -1 if there is none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { (void)close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    int number() const { return number_; }
    explicit operator bool() const { return number_ != -1; }
    /// 0, or -1 with `errno` set.
    int close();

private:
    int number_ = -1;
};

/// Whether `path` may be passed to the system, which would cut a name at its first NUL. False with `errno`
/// set.
bool isUsableName(const std::string& path);

/// Gets the status of what `path` leads to. False with `errno` set.
bool lookUp(const std::string& path, struct stat& status);
/// Gets the status of `path` itself, which may be a link. False with `errno` set.
bool lookAt(const std::string& path, struct stat& status);

/// The stamp of the file with that status.
FileStamp stampOf(const struct stat& status);
/// The stamp that the file has now, also on a network drive whose files others change; that of no file if it
/// is missing. No value if the system does not say.
std::optional<FileStamp> currentStamp(const std::string& path);
/// Whether every change of the file after `now` will give it another time. Not so if its time is that of
/// `now`: the clock of a file system moves in steps.
bool isOlderThanClockStep(const struct stat& status, timespec now);

/// Opens with close-on-exec set. An empty descriptor with `errno` set after a failure.
Descriptor openDescriptor(const std::string& path, int flags, unsigned mode = 0);

/// Returns when what was written to an open file, or the renames in a folder, are safe from a power cut.
/// False with `errno` set.
bool flushToDisk(int file);

/// Locks an open file for reading (`LOCK_SH`) or writing (`LOCK_EX`) until it is closed. Waits up to some
/// seconds for others, then returns false. True also if the file system has no locks.
bool lockFile(int file, int operation);

/// The meaning of the error `code` for an operation on `path`.
SystemError errorOn(const std::string& path, int code = errno);

/// Writes all of `bytes` to an open file. False with `errno` set.
bool writeAll(int file, std::string_view bytes);

class PosixFolderLock final : public FolderLock {
public:
    explicit PosixFolderLock(const std::string& folder);

private:
    Descriptor folder_; // closing it releases the lock
};

} // namespace qrtVistrelClasses4
