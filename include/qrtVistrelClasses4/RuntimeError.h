// The only exception of the library: a classic run-time error with its number and description.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

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
QRT_PUBLIC std::string_view Describe(ErrorNumber number);

class RuntimeError : public std::exception {
public:
    explicit RuntimeError(ErrorNumber number);
    /// An error with a description of its own. `number` may be any number that a host raised.
    RuntimeError(int number, std::string description);

    /// The same error, marked so that it is logged but not shown to the operator.
    RuntimeError quietly() const;

    int number() const { return number_; }
    const std::string& description() const { return description_; }
    /// Whether it is to be logged only.
    bool isQuiet() const { return quiet_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    std::string description_;
    bool quiet_ = false;
};

/// Throws that error. A call of this function keeps small functions small enough to be inlined.
QRT_PUBLIC [[noreturn]] void Raise(ErrorNumber number);

/// Why a file was not read to its end.
struct FileError {
    RuntimeError error;
    /// Number (from 1) of the line of the value that was refused; one more than the last line if the file
    /// ends too early. Empty if no line is to blame, because the file could not be opened or read.
    std::optional<std::size_t> line;
};

} // namespace qrtVistrelClasses4
