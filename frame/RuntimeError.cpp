#include <qrtVistrelClasses4/RuntimeError.h>

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

} // namespace qrtVistrelClasses4
