// What the operating system answers: success, or one of the few refusals that the library tells apart.
#pragma once

#include <utility>

namespace qrtVistrelClasses4 {

enum class [[nodiscard]] SystemError{
    none,          fileNotFound,  folderNotFound,
    accessDenied, ///< No right to it, read-only, or not a plain file.
    inUse,        ///< Another program holds it.
    diskFull,      alreadyExists,
    deviceFailure, ///< The device reported a failed read or write.
    tooLarge,      ///< More than fits into memory.
    unsupported,   ///< This machine has no such service.
};

/// A value, or why there is none. `value` is default-made when `error` is not `none`.
template <class T>
struct [[nodiscard]] Result {
    SystemError error = SystemError::none;
    T value{};

    Result(T given) : value(std::move(given)) {}
    Result(SystemError reason) : error(reason) {}
    explicit operator bool() const { return error == SystemError::none; }
};

} // namespace qrtVistrelClasses4
