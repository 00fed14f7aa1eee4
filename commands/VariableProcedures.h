// Names of the procedures for live values on the call trace.
#pragma once

#include "frame/Procedure.h"

namespace qrtVistrelClasses4 {

constexpr Procedure VariableFunction(std::string_view name) {
    return {"modEmbeddedVariables.bas", ProcedureKind::Function, name};
}

} // namespace qrtVistrelClasses4
