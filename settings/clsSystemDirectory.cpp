#include "settings/clsSystemDirectory.h"

#include "frame/Text.h"
#include "frame/Traced.h"
#include "platform/NulTerminated.h"
#include "platform/Platform.h"

namespace qrtVistrelClasses4 {
std::string clsSystemDirectory::FindSystemFolder(std::int32_t FolderNumber) {
    return traced(
        {"clsSystemDirectory.cls", ProcedureKind::Function, "FindSystemFolder"},
        [&] {
            const std::string buffer = platform().specialFolder(FolderNumber).value_or("");
            const std::string_view folder = Trim(buffer);
            return std::string(Trim(UntilNul(folder)));
        },
        Arg{"FolderNumber", FolderNumber});
}

} // namespace qrtVistrelClasses4
