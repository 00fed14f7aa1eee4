// The library's one exception: a classic run-time error with its number and description.
#pragma once

#include "platform/SystemError.h"

#include <exception>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Numbers that scripts and log readers know these errors by.
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
    /// With a text that says more than the usual one. `number` may be any number that a host raised.
    RuntimeError(int number, std::string description);

    /// The same error, to be logged but not shown to the operator.
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

/// Throws that error. Small functions that rarely do stay small with it, so that calls of them cost nothing.
[[noreturn]] void Raise(ErrorNumber number);

/// The run-time error that tells of a refusal of the operating system; `error` is not `none`.
RuntimeError ErrorFor(SystemError error);

/// Throws when `error` is not `none`.
void Check(SystemError error);

/// The value of `result`, or its error thrown.
template <class T>
T ValueOf(Result<T> result) {
    Check(result.error());
    return std::move(result).value();
}

} // namespace qrtVistrelClasses4
