// Arguments on their way from a late-bound caller to a member, and back.
#pragma once

#include "automation/Values.h"

#include <ole2.h>

namespace qrtVistrelClasses4 {

/// What a member declares for one argument.
struct DeclaredArgument {
    VARTYPE type = VT_EMPTY; ///< `VT_EMPTY` for an argument that is best left to the system.
    bool byReference = false;
    VARIANT* defaultValue = nullptr; ///< Of an argument that is left out; lives as long as the member.
    IID interfaceId{};               ///< Of a `VT_DISPATCH`.
};

/// `type` is what `declared` belongs to.
DeclaredArgument Declared(ITypeInfo& type, const TYPEDESC& declared);

/// One argument of a call. Lives until the call is over, because the member may get its address.
class LateBoundArgument {
public:
    /// Converts what the caller `given` to what the member declares, and gives the member's view of it.
    /// `given` must outlive this object.
    HRESULT convert(const DeclaredArgument& declared, VARIANT& given, LCID locale, VARIANT& passed);

    /// Puts what the member has changed into the caller's variable, in the type that the variable has when it
    /// has one.
    HRESULT writeBack(LCID locale);

private:
    HRESULT convertValue(const DeclaredArgument& declared, LCID locale);

    VARIANT* given_ = nullptr;
    bool mayHaveChanged() const;

    OwnedVariant value_;
    VARIANT passedNumber_{}; ///< What the member was given, when that is a number.
    bool writesBack_ = false;
};

} // namespace qrtVistrelClasses4
