#include "frame/SystemErrors.h"

namespace qrtVistrelClasses4 {
namespace {

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

RuntimeError ErrorFor(SystemError error) { return RuntimeError(numberFor(error)); }

void Check(SystemError error) {
    if (error != SystemError::none)
        throw ErrorFor(error);
}

void Check(const std::optional<RuntimeError>& error) {
    if (error)
        throw RuntimeError(*error);
}

} // namespace qrtVistrelClasses4
