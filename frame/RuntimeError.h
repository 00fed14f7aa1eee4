// The only exception of the library: a classic run-time error with its number and description.
#pragma once

#include "platform/SystemError.h"

#include <exception>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The numbers by which scripts and readers of logs know these errors.
enum class ErrorNumber : int {
    invalidProcedureCall = 5,
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    internalError = 51,
    fileNotFound = 53,
    deviceIoError = 57,
    fileAlreadyExists = 58,
    diskFull = 61,
    inputPastEnd = 62,
    deviceUnavailable = 68,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
};

/// The usual description of `number`.
std::string_view Describe(ErrorNumber number);

class RuntimeError : public std::exception {
public:
    explicit RuntimeError(ErrorNumber number);
    /// An error with a description of its own. `number` may be any number that a host raised.
    RuntimeError(int number, std::string description);

    /// The same error, marked so that it is logged but not shown to the operator.
    RuntimeError quietly() const;

    int number() const { return number_; }
    const std::string& description() const { return description_; }
    bool isQuiet() const { return quiet_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    std::string description_;
    bool quiet_ = false;
};

/// Throws that error. A call of this function keeps small functions small enough to be inlined.
[[noreturn]] void Raise(ErrorNumber number);

/// The run-time error for an error of the operating system. `error` must not be `none`.
RuntimeError ErrorFor(SystemError error);

/// Throws if `error` is not `none`.
void Check(SystemError error);

/// The value of `result`. Throws its error if there is none.
template <class T>
T ValueOf(Result<T> result) {
    Check(result.error());
    return std::move(result).value();
}

} // namespace qrtVistrelClasses4
