#include "automation/LateBoundCall.h"

#include "automation/LateBoundArgument.h"
#include "automation/Module.h"

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// The description of the interface's function table. Only there can members be looked up by index.
ComPtr<ITypeInfo> functionTableOf(ITypeInfo& type) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    if (FAILED(type.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(type.GetRefTypeInfo(reference, &table)))
        table = &type;
    return table;
}

/// The description of a member of `type`, if `type` has it.
class Member {
public:
    Member(ITypeInfo& type, DISPID id, WORD flags) : type_(functionTableOf(type)) {
        ComPtr<ITypeInfo2> search;
        if (FAILED(type_.As(&search)))
            return;
        for (const INVOKEKIND kind :
             {INVOKE_FUNC, INVOKE_PROPERTYGET, INVOKE_PROPERTYPUT, INVOKE_PROPERTYPUTREF}) {
            UINT index = 0;
            if ((flags & kind) && SUCCEEDED(search->GetFuncIndexOfMemId(id, kind, &index))) {
                type_->GetFuncDesc(index, &description_);
                return;
            }
        }
    }
    ~Member() {
        if (description_)
            type_->ReleaseFuncDesc(description_);
    }
    Member(const Member&) = delete;
    Member& operator=(const Member&) = delete;

    bool exists() const { return description_ != nullptr; }
    /// The result does not count.
    int argumentCount() const {
        const int count = exists() ? description_->cParams : 0;
        return count > 0 && isResult(description_->lprgelemdescParam[count - 1]) ? count - 1 : count;
    }
    DeclaredArgument argument(int number) const {
        if (number < 0 || number >= argumentCount())
            return {};
        const ELEMDESC& element = description_->lprgelemdescParam[number];
        DeclaredArgument declared = Declared(*type_.Get(), element.tdesc);
        if (element.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT)
            declared.defaultValue = &element.paramdesc.pparamdescex->varDefaultValue;
        return declared;
    }

private:
    static bool isResult(const ELEMDESC& argument) {
        return (argument.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    }

    ComPtr<ITypeInfo> type_;
    FUNCDESC* description_ = nullptr;
};

/// The index, from 0, of the member's argument that is passed at `position` of `arguments`. Named arguments
/// come first there, then the others from last to first.
int argumentAt(UINT position, const DISPPARAMS& arguments, const Member& member) {
    if (position >= arguments.cNamedArgs)
        return static_cast<int>(arguments.cArgs - 1 - position);
    const DISPID name = arguments.rgdispidNamedArgs[position];
    return name == DISPID_PROPERTYPUT ? member.argumentCount() - 1 : static_cast<int>(name);
}

/// True if `call` sets a property that does not exist, and there is a method of its name with one argument.
bool isMethodSetAsProperty(ITypeInfo& type, const MemberCall& call) {
    return (call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) &&
           !Member(type, call.member, call.flags).exists() &&
           Member(type, call.member, DISPATCH_METHOD).argumentCount() == 1;
}

} // namespace

HRESULT CallLateBound(ITypeInfo& type, void* object, MemberCall call, const DISPPARAMS& arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
    DISPPARAMS passed = arguments;
    if (isMethodSetAsProperty(type, call)) {
        call.flags = DISPATCH_METHOD;
        passed.cNamedArgs = 0;
    }
    const Member member(type, call.member, call.flags);
    if (member.exists() && static_cast<int>(arguments.cArgs) > member.argumentCount())
        return DISP_E_BADPARAMCOUNT; // some systems do not check it
    std::vector<LateBoundArgument> converted(arguments.cArgs);
    std::vector<VARIANT> values(arguments.cArgs);
    passed.rgvarg = values.data();
    HRESULT done = S_OK;
    for (UINT position = 0; position < arguments.cArgs && SUCCEEDED(done); ++position) {
        const DeclaredArgument declared = member.argument(argumentAt(position, passed, member));
        done =
            converted[position].convert(declared, arguments.rgvarg[position], call.locale, values[position]);
        if (FAILED(done) && wrongArgument)
            *wrongArgument = position;
    }
    if (SUCCEEDED(done))
        done = type.Invoke(object, call.member, call.flags, &passed, result, exception, wrongArgument);
    const bool called = SUCCEEDED(done);
    for (LateBoundArgument& argument : converted)
        if (SUCCEEDED(done))
            done = argument.writeBack(call.locale);
    if (called && FAILED(done) && result)
        VariantClear(result); // callers do not release the result of a failed call
    return done;
}

} // namespace qrtVistrelClasses4
