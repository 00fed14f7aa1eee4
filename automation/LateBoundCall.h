// Calls of members by number, as scripts make them.
#pragma once

#include <ole2.h>

namespace qrtVistrelClasses4 {

struct MemberCall {
    DISPID member;
    LCID locale;
    WORD flags; ///< `DISPATCH_METHOD` and so on.
};

/// Calls a member of `object`, whose interface `type` describes. Arguments are converted to the declared
/// types, also where the member takes them by reference: what it leaves there is written back to the caller's
/// variable, if there is one. Setting a property that is a method of one argument calls the method.
/// `wrongArgument` tells which argument does not convert.
HRESULT CallLateBound(ITypeInfo& type, void* object, MemberCall call, const DISPPARAMS& arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument);

} // namespace qrtVistrelClasses4
