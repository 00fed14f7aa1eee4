#include "platform/windows/WindowsSystem.h"

namespace qrtVistrelClasses4 {

constexpr DWORD kDiskQuotaExceeded = 1295; // not named in every set of system headers

SystemError systemError(DWORD code) {
    switch (code) {
    case ERROR_SUCCESS:
        return SystemError::none;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_NO_MORE_ITEMS:
        return SystemError::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
        return SystemError::folderNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_PRIVILEGE_NOT_HELD:
        return SystemError::accessDenied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_BUSY:
    case ERROR_USER_MAPPED_FILE:
        return SystemError::inUse;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
        return SystemError::diskFull;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
        return SystemError::alreadyExists;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return SystemError::tooLarge;
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED:
        return SystemError::unsupported;
    default:
        return SystemError::deviceFailure;
    }
}

SystemError lastSystemError() { return systemError(::GetLastError()); }

} // namespace qrtVistrelClasses4
