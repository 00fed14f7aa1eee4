#include "settings/clsSystemDirectory.h"

#include "frame/Text.h"
#include "frame/Traced.h"
#include "platform/NulTerminated.h"
#include "platform/Platform.h"

namespace qrtVistrelClasses4 {

std::optional<std::string> SystemFolder(std::int32_t FolderNumber) {
    return traced(
        {"clsSystemDirectory.cls", ProcedureKind::Function, "FindSystemFolder"},
        [&]() -> std::optional<std::string> {
            const std::optional<std::string> path = platform().specialFolder(FolderNumber);
            std::string folder(Trim(UntilNul(Trim(path ? *path : ""))));
            return folder.empty() ? std::nullopt : std::optional(std::move(folder));
        },
        Arg{"FolderNumber", FolderNumber});
}

} // namespace qrtVistrelClasses4
