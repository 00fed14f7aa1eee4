#include "tools/program/FileStart.h"

#include "frame/SystemErrors.h"
#include "platform/Platform.h"
#include <qrtVistrelClasses4/RuntimeError.h>

namespace qrtVistrelClasses4 {

std::string FileStart(const std::string& path, std::size_t most) {
    const auto file = ValueOf(platform().files().openToRead(path));
    std::string bytes(most, '\0');
    bytes.resize(ValueOf(file->readAt(0, bytes)));
    return bytes;
}

} // namespace qrtVistrelClasses4
