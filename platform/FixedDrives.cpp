#include "platform/FixedDrives.h"

#include "platform/FileNames.h"
#include "platform/Remembered.h"

namespace qrtVistrelClasses4 {

bool FixedDrives::hold(const std::string& path) {
    return Remembered(byPath_, path, [&] { return isFixed(files_.driveOf(PathOnDisk(files_, path))); });
}

bool FixedDrives::isFixed(const Drive& drive) {
    return Remembered(byDrive_, drive.number, [&] { return files_.isFixed(drive); });
}

} // namespace qrtVistrelClasses4
