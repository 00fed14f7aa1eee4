#include "frame/RuntimeError.h"

#include <array>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

struct Description {
    ErrorNumber number;
    std::string_view text;
};

constexpr std::array kDescriptions{
    Description{ErrorNumber::invalidProcedureCall, "Invalid procedure call or argument"},
    Description{ErrorNumber::overflow, "Overflow"},
    Description{ErrorNumber::outOfMemory, "Out of memory"},
    Description{ErrorNumber::subscriptOutOfRange, "Subscript out of range"},
    Description{ErrorNumber::typeMismatch, "Type mismatch"},
    Description{ErrorNumber::internalError, "Internal error"},
    Description{ErrorNumber::fileNotFound, "File not found"},
    Description{ErrorNumber::deviceIoError, "Device I/O error"},
    Description{ErrorNumber::fileAlreadyExists, "File already exists"},
    Description{ErrorNumber::diskFull, "Disk full"},
    Description{ErrorNumber::inputPastEnd, "Input past end of file"},
    Description{ErrorNumber::deviceUnavailable, "Device unavailable"},
    Description{ErrorNumber::permissionDenied, "Permission denied"},
    Description{ErrorNumber::pathFileAccess, "Path/File access error"},
    Description{ErrorNumber::pathNotFound, "Path not found"},
};

ErrorNumber numberFor(SystemError error) {
    switch (error) {
    case SystemError::fileNotFound:
        return ErrorNumber::fileNotFound;
    case SystemError::folderNotFound:
        return ErrorNumber::pathNotFound;
    case SystemError::accessDenied:
        return ErrorNumber::pathFileAccess;
    case SystemError::inUse:
        return ErrorNumber::permissionDenied;
    case SystemError::diskFull:
        return ErrorNumber::diskFull;
    case SystemError::alreadyExists:
        return ErrorNumber::fileAlreadyExists;
    case SystemError::deviceFailure:
        return ErrorNumber::deviceIoError;
    case SystemError::tooLarge:
        return ErrorNumber::outOfMemory;
    case SystemError::unsupported:
        return ErrorNumber::deviceUnavailable;
    case SystemError::none:
        break;
    }
    return ErrorNumber::internalError;
}

} // namespace

std::string_view Describe(ErrorNumber number) {
    for (const Description& row : kDescriptions)
        if (row.number == number)
            return row.text;
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number)
    : RuntimeError(static_cast<int>(number), std::string(Describe(number))) {}

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

RuntimeError RuntimeError::quietly() const {
    RuntimeError result = *this;
    result.quiet_ = true;
    return result;
}

void Raise(ErrorNumber number) { throw RuntimeError(number); }

RuntimeError ErrorFor(SystemError error) { return RuntimeError(numberFor(error)); }

void Check(SystemError error) {
    if (error != SystemError::none)
        throw ErrorFor(error);
}

} // namespace qrtVistrelClasses4
