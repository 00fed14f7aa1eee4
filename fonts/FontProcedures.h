// Names of this room's procedures on the call trace.
#pragma once

#include "frame/Procedure.h"

namespace qrtVistrelClasses4 {

constexpr Procedure FontProcedure(ProcedureKind kind, std::string_view name) {
    return {"classFontMaster.cls", kind, name};
}
constexpr Procedure FontSub(std::string_view name) { return FontProcedure(ProcedureKind::Sub, name); }
constexpr Procedure FontFunction(std::string_view name) {
    return FontProcedure(ProcedureKind::Function, name);
}

} // namespace qrtVistrelClasses4
