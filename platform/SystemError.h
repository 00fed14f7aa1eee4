// Results of system calls: success, or one of the few errors that the library distinguishes.
#pragma once

#include <optional>
#include <utility>

namespace qrtVistrelClasses4 {

enum class [[nodiscard]] SystemError{
    none,          fileNotFound,  folderNotFound,
    accessDenied, ///< No permission, read-only, or not a plain file.
    inUse,        ///< Another program is using it.
    diskFull,      alreadyExists,
    deviceFailure, ///< The device reported a failed read or write.
    tooLarge,      ///< More than fits into memory.
    unsupported,   ///< This machine has no such service.
};

/// A value, or the reason why there is none.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T given) : value_(std::move(given)) {}
    /// `reason` is not `none`.
    Result(SystemError reason) : error_(reason) {}

    explicit operator bool() const { return value_.has_value(); }
    /// `none` if there is a value.
    SystemError error() const { return error_; }

    /// Reading a value that is not there throws `std::bad_optional_access`, which traps report as error 51.
    T& value() & { return value_.value(); }
    const T& value() const& { return value_.value(); }
    T&& value() && { return std::move(value_).value(); }
    /// `other` if there is no value.
    T valueOr(T other) && { return std::move(value_).value_or(std::move(other)); }

private:
    SystemError error_ = SystemError::none;
    std::optional<T> value_;
};

} // namespace qrtVistrelClasses4
