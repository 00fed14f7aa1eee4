// How the call trace and error reports name a procedure of the library.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet };

/// A procedure of the library. The views refer to literals.
struct Procedure {
    std::string_view module; ///< File name of its class or module, "FrameInfoClass.cls".
    ProcedureKind kind;
    std::string_view name;

    /// Kind and name, "Property (Get) FrameName".
    std::string fullName() const;
};

} // namespace qrtVistrelClasses4
