// Calls of members by number, the way scripts call.
#pragma once

#include "automation/InterfaceTable.h"

#include <ole2.h>

namespace qrtVistrelClasses4 {

struct MemberCall {
    DISPID member;
    LCID locale;
    WORD flags; ///< `DISPATCH_METHOD`, `DISPATCH_PROPERTYGET`, ...
};

/// Calls a member of `object`, whose interface is described by `table`. Arguments are converted to their
/// declared types. If the member takes an argument by reference, its new value is written back to the
/// caller's variable. A method with one argument can also be called by setting a property of its name. If an
/// argument cannot be converted, `*wrongArgument` becomes its index in `arguments`.
HRESULT CallLateBound(const InterfaceTable& table, void* object, MemberCall call, const DISPPARAMS& arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument);

} // namespace qrtVistrelClasses4
