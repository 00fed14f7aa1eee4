// Picture and command files that frames refer to.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

class FixedDrives;

// References are in Windows-1252 or as they are on the disk; see `PathOnDisk`.

/// Whether there are files. Remembers it, so that the system is asked about each only once.
class FoundFiles {
public:
    /// True if the path starts at a drive (on systems other than Windows: at the root) and leads to a file.
    bool has(const std::string& reference);

private:
    bool isFile(const std::string& reference);

    std::unordered_map<std::string, bool> files_;   ///< By references to them.
    std::unordered_map<std::string, bool> folders_; ///< Those that a file was missing in, by references.
};

/// What `found` answers.
bool FileExists(const std::string& sFileName, FoundFiles& found);

/// Whether the file lies on one of the drives that stay with this machine.
bool IsFixedDrive(const std::string& sFileName, FixedDrives& drives);

enum class FailureReport {
    usual,
    quiet, ///< Logged, but not shown to the operator.
};

/// Copies the file, under its own name, into the "Data" folder of the application data folder. Makes that
/// folder if needed, and replaces a file of that name. Returns a reference to the copy with its full name, or
/// nothing if copying failed, which has been reported as `report` says.
std::optional<std::string> CopyToDataFolder(const std::string& sFileName, FailureReport report);

} // namespace qrtVistrelClasses4
