// Conversion of arguments from a late-bound caller to a member, and back.
#pragma once

#include "automation/Module.h"
#include "automation/Values.h"

#include <ole2.h>

#include <functional>

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

/// Gives `given` the content of `made`, an object of the same interface that nobody else uses.
using FillObject = std::function<void(IDispatch& given, IDispatch& made)>;

/// One argument of a call. It must live until the call has returned, because the member may get its address.
class LateBoundArgument {
public:
    /// Converts the caller's argument `given` to the declared type, and sets `passed` to what the member
    /// gets. `given` must outlive this object.
    HRESULT convert(const DeclaredArgument& declared, VARIANT& given, LCID locale, VARIANT& passed);

    /// The object that the caller passed by value where the member sets a variable to an object; else null.
    IDispatch* objectToFill() const { return objectToFill_.Get(); }

    /// Stores what the member has changed in the caller's variable, converted to the variable's type if it
    /// has one. Without a variable, a new object is only reached through the one that the caller passed,
    /// which `fill` gives its content.
    HRESULT writeBack(LCID locale, const FillObject& fill);

private:
    HRESULT convertValue(const DeclaredArgument& declared, LCID locale);

    bool mayHaveChanged() const;

    VARIANT* given_ = nullptr;
    OwnedVariant value_;
    VARIANT passedNumber_{}; ///< The value before the call, if it is a number.
    bool writesBack_ = false;
    ComPtr<IDispatch> objectToFill_;
};

} // namespace qrtVistrelClasses4
