// Names of this room's procedures on the call trace.
#pragma once

#include "frame/Procedure.h"

namespace qrtVistrelClasses4 {

constexpr Procedure DisplayProcedure(ProcedureKind kind, std::string_view name) {
    return {"DisplayDatabaseClass.cls", kind, name};
}
constexpr Procedure DisplaySub(std::string_view name) { return DisplayProcedure(ProcedureKind::Sub, name); }
constexpr Procedure DisplayFunction(std::string_view name) {
    return DisplayProcedure(ProcedureKind::Function, name);
}

} // namespace qrtVistrelClasses4
