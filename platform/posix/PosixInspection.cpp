#include "platform/posix/PosixInspection.h"

#include "platform/posix/PosixSystem.h"

#include <fcntl.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {

std::string PosixInspection::systemName() {
    utsname names{};
    return ::uname(&names) == 0 ? std::string(names.sysname) + " " + names.release : "an unknown system";
}

SystemError PosixInspection::mayAddTo(const std::string& folder) {
    const bool may = isUsableName(folder) && ::faccessat(AT_FDCWD, folder.empty() ? "." : folder.c_str(),
                                                         W_OK | X_OK, AT_EACCESS) == 0;
    return may ? SystemError::none : errorOn(folder);
}

} // namespace qrtVistrelClasses4
