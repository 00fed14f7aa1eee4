// Folders that the system gives its users.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

class clsSystemDirectory {
public:
    static constexpr std::string_view ClassName() { return "clsSystemDirectory"; }

    /// Full path of the shell special folder with that number (5: the user's documents); "" when there is
    /// none.
    std::string FindSystemFolder(std::int32_t FolderNumber);
};

} // namespace qrtVistrelClasses4
