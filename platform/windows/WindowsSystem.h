// Small helpers for system calls.
#pragma once

#include "platform/SystemError.h"

#include <mutex>
#include <utility>

#include <windows.h>

namespace qrtVistrelClasses4 {

/// Held while a temporary file is made and noted. Once the user has ended the program, nobody gets it.
std::mutex& TemporaryFilesInTheMaking();

/// The meaning of a system error code.
SystemError systemError(DWORD code);
/// The meaning of the calling thread's last error.
SystemError lastSystemError();

/// While it exists, functions of the system that this thread calls fail where the system would otherwise show
/// a box of its own, such as one that asks for a disk in the drive.
class NoSystemBoxes {
public:
    NoSystemBoxes() { (void)::SetThreadErrorMode(::GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &before_); }
    ~NoSystemBoxes() {
        const DWORD lastError = ::GetLastError(); // which belongs to the function that was called
        (void)::SetThreadErrorMode(before_, nullptr);
        ::SetLastError(lastError);
    }
    NoSystemBoxes(const NoSystemBoxes&) = delete;
    NoSystemBoxes& operator=(const NoSystemBoxes&) = delete;

private:
    DWORD before_ = 0;
};

/// An open file, which the destructor closes.
class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() { (void)close(); }
    FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool close() { return !*this || ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != FALSE; }

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

} // namespace qrtVistrelClasses4
