#include "automation/LateBoundCall.h"

#include "automation/LateBoundArgument.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstddef>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// The index, from 0, of the member's argument that is passed at `position` of `arguments`. Named arguments
/// come first there, then the others from last to first.
std::size_t argumentAt(UINT position, const DISPPARAMS& arguments, const DescribedMember& member) {
    if (position >= arguments.cNamedArgs)
        return arguments.cArgs - 1 - position;
    const DISPID name = arguments.rgdispidNamedArgs[position];
    return name == DISPID_PROPERTYPUT ? member.arguments.size() - 1 : static_cast<std::size_t>(name);
}

/// The method that `call` calls by setting a property of its name. Null if it does something else.
const DescribedMember* methodSetAsProperty(const InterfaceTable& table, const MemberCall& call) {
    if (!(call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)))
        return nullptr;
    const DescribedMember* method = table.find(call.member, DISPATCH_METHOD);
    return method && method->arguments.size() == 1 ? method : nullptr;
}

} // namespace

HRESULT CallLateBound(const InterfaceTable& table, const CalledObject& object, MemberCall call,
                      const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception,
                      UINT* wrongArgument) {
    DISPPARAMS passed = arguments;
    const DescribedMember* member = table.find(call.member, call.flags);
    if (!member && (member = methodSetAsProperty(table, call))) {
        call.flags = DISPATCH_METHOD;
        passed.cNamedArgs = 0;
    }
    const std::size_t argumentCount = member ? member->arguments.size() : 0;
    if (member && arguments.cArgs > argumentCount)
        return DISP_E_BADPARAMCOUNT; // some systems do not check it
    std::vector<LateBoundArgument> converted(arguments.cArgs);
    std::vector<VARIANT> values(arguments.cArgs);
    passed.rgvarg = values.data();
    HRESULT done = S_OK;
    for (UINT position = 0; position < arguments.cArgs && SUCCEEDED(done); ++position) {
        const std::size_t index = member ? argumentAt(position, passed, *member) : 0;
        done =
            converted[position].convert(index < argumentCount ? member->arguments[index] : DeclaredArgument{},
                                        arguments.rgvarg[position], call.locale, values[position]);
        if (FAILED(done) && wrongArgument)
            *wrongArgument = position;
        if (IDispatch* const filled = converted[position].objectToFill(); filled && filled == object.members)
            throw RuntimeError(ErrorNumber::invalidProcedureCall);
    }
    if (SUCCEEDED(done))
        done = table.type()->Invoke(object.members, call.member, call.flags, &passed, result, exception,
                                    wrongArgument);
    const bool called = SUCCEEDED(done);
    for (LateBoundArgument& argument : converted)
        if (SUCCEEDED(done))
            done = argument.writeBack(call.locale, object.fill);
    if (called && FAILED(done) && result)
        VariantClear(result); // callers do not release the result of a failed call
    return done;
}

} // namespace qrtVistrelClasses4
