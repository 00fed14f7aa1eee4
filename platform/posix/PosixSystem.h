// Small tools over the system's calls.
#pragma once

#include "platform/SystemError.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace qrtVistrelClasses4 {

/// Makes a system call again for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// An open file or folder, closed with the object; -1 is none.
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

/// What the entry that `path` leads to is. False with `errno` set.
bool lookUp(const std::string& path, struct stat& status);

/// Opens with close-on-exec set. `errno` tells why there is no descriptor.
Descriptor openDescriptor(const std::string& path, int flags, unsigned mode = 0);

/// Locks an open file for reading (`LOCK_SH`) or writing (`LOCK_EX`) until it is closed; waits for others,
/// but not for ever. True also where the file system knows no locks.
bool lockFile(int file, int operation);

/// Folder that the entry `path` is in: up to the last "/", "." without one.
std::string folderOf(const std::string& path);

/// What `errno` means for an operation on `path`.
SystemError errorOn(const std::string& path, int code = errno);

/// Writes all of `bytes` to an open file. False with `errno` set.
bool writeAll(int file, std::string_view bytes);

/// Keeps other processes that lock the same folder waiting. Does nothing where the file system knows no
/// locks, or where another process keeps its lock for seconds: a setting is better saved without than not at
/// all.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder);

private:
    Descriptor folder_; // closing it gives the lock back
};

} // namespace qrtVistrelClasses4
