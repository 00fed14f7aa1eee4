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

/// The object that is called.
struct CalledObject {
    void* members; ///< Its interface that the table describes.
    FillObject fill;
};

/// Calls a member of `object`, whose interface is described by `table`. Arguments are converted to their
/// declared types. If the member takes an argument by reference, its new value is written back to the
/// caller's variable. Some languages have no such arguments and pass the object itself: if the member makes a
/// new one, the caller's object is filled with the content of that. A member cannot fill the object that is
/// called: that throws error 5 before anything is done. A method with one argument can also be called by
/// setting a property of its name. If an argument cannot be converted, `*wrongArgument` becomes its index in
/// `arguments`.
HRESULT CallLateBound(const InterfaceTable& table, const CalledObject& object, MemberCall call,
                      const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception,
                      UINT* wrongArgument);

} // namespace qrtVistrelClasses4
