// Conversion of arguments from a late-bound caller to a member, and back.
#pragma once

#include "automation/Values.h"

#include <ole2.h>

namespace qrtVistrelClasses4 {

/// The declaration of an argument of a member.
struct DeclaredArgument {
    VARTYPE type = VT_EMPTY; ///< `VT_EMPTY` if the system should convert the argument.
    bool byReference = false;
    VARIANT* defaultValue = nullptr; ///< Null if there is none; lives as long as the member's description.
    IID interfaceId{};               ///< The interface that a `VT_DISPATCH` argument must have.
};

/// The declaration of an argument with type `declared` of a member of `type`.
DeclaredArgument Declared(ITypeInfo& type, const TYPEDESC& declared);

/// One argument of a call. It must live until the call has returned, because the member may get its address.
class LateBoundArgument {
public:
    /// Converts the caller's argument `given` to the declared type, and sets `passed` to what the member
    /// gets. `given` must outlive this object.
    HRESULT convert(const DeclaredArgument& declared, VARIANT& given, LCID locale, VARIANT& passed);

    /// Stores what the member has changed in the caller's variable, converted to the variable's type if it
    /// has one.
    HRESULT writeBack(LCID locale);

private:
    HRESULT convertValue(const DeclaredArgument& declared, LCID locale);

    bool mayHaveChanged() const;

    VARIANT* given_ = nullptr;
    OwnedVariant value_;
    VARIANT passedNumber_{}; ///< The value before the call, if it is a number.
    bool writesBack_ = false;
};

} // namespace qrtVistrelClasses4
