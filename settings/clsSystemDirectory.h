// Folders that the system gives its users.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Full path of the shell special folder with that number (5: the user's documents), if there is one.
/// Traced as `clsSystemDirectory::FindSystemFolder`.
std::optional<std::string> SystemFolder(std::int32_t FolderNumber);

class clsSystemDirectory {
public:
    static constexpr std::string_view ClassName() { return "clsSystemDirectory"; }

    /// The same; "" if there is none.
    std::string FindSystemFolder(std::int32_t FolderNumber) const {
        return SystemFolder(FolderNumber).value_or("");
    }
};

} // namespace qrtVistrelClasses4
