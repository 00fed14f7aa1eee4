// Which files stay with this machine.
#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Knows which files lie on drives that are always in this machine. Remembers its answers, since files are
/// usually many and their drives few. Drives come and go, so that it is made anew for each save.
class FixedDrives {
public:
    /// `files` must outlive this object.
    explicit FixedDrives(FileSystem& files) : files_(files) {}

    /// Whether the file `path` lies on such a drive. `path` is in any encoding that `PathOnDisk` takes.
    bool hold(const std::string& path);

private:
    bool isFixed(const Drive& drive);

    FileSystem& files_;
    std::unordered_map<std::string, bool> byPath_;
    std::unordered_map<std::uint64_t, bool> byDrive_; ///< By the drive's number.
};

} // namespace qrtVistrelClasses4
