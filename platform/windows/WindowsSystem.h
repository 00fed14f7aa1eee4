// Small tools over the system's calls.
#pragma once

#include "platform/SystemError.h"

#include <utility>

#include <windows.h>

namespace qrtVistrelClasses4 {

/// What a system error code means.
SystemError systemError(DWORD code);
/// What the code of the calling thread's last failure means.
SystemError lastSystemError();

/// An open file, closed with the object.
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
