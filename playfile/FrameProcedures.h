// Names of this room's procedures on the call trace.
#pragma once

#include "frame/Procedure.h"

namespace qrtVistrelClasses4 {

constexpr Procedure FrameProcedure(ProcedureKind kind, std::string_view name) {
    return {"FrameInfoClass.cls", kind, name};
}
constexpr Procedure FrameSub(std::string_view name) { return FrameProcedure(ProcedureKind::Sub, name); }
constexpr Procedure FrameFunction(std::string_view name) {
    return FrameProcedure(ProcedureKind::Function, name);
}

} // namespace qrtVistrelClasses4
