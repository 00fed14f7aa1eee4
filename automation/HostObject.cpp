#include "automation/HostObject.h"

#include "automation/Values.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <ocidl.h>

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// The description that an object gives of its error.
struct ObjectException : EXCEPINFO {
    ObjectException() : EXCEPINFO{} {}
    ~ObjectException() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    ObjectException(const ObjectException&) = delete;
    ObjectException& operator=(const ObjectException&) = delete;

    RuntimeError error() {
        if (pfnDeferredFillIn)
            pfnDeferredFillIn(this);
        const int number = wCode != 0                                    ? wCode
                           : HRESULT_FACILITY(scode) == FACILITY_CONTROL ? HRESULT_CODE(scode)
                                                                         : 440;
        const std::string description = NarrowText(bstrDescription);
        return {number, description.empty() ? "Automation error" : description};
    }
};

RuntimeError errorFor(HRESULT refusal) {
    switch (refusal) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
        return {438, "Object doesn't support this property or method"};
    case DISP_E_TYPEMISMATCH:
        return RuntimeError(ErrorNumber::typeMismatch);
    case DISP_E_OVERFLOW:
        return RuntimeError(ErrorNumber::overflow);
    default:
        return {440, "Automation error"};
    }
}

/// The type of an object's class if the object provides it, else that of its interface.
ComPtr<ITypeInfo> typeOf(IDispatch& object) {
    ComPtr<ITypeInfo> type;
    ComPtr<IProvideClassInfo> provider;
    if (FAILED(object.QueryInterface(IID_PPV_ARGS(&provider))) || FAILED(provider->GetClassInfo(&type)))
        object.GetTypeInfo(0, LOCALE_USER_DEFAULT, &type);
    return type;
}

} // namespace

std::string HostObject::className() const {
    if (isNothing())
        return "Nothing";
    const ComPtr<ITypeInfo> type = typeOf(*object_.Get());
    BSTR name = nullptr;
    if (!type || FAILED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr)))
        return "Object";
    const OwnedBstr owned(name);
    const std::string text = NarrowText(name);
    return text.starts_with('_') ? text.substr(1) : text;
}

std::int64_t HostObject::readNumber(const wchar_t* name) const {
    OwnedVariant result;
    invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &result);
    const HRESULT done = VariantChangeType(&result, &result, 0, VT_I8);
    if (FAILED(done))
        throw errorFor(done);
    return V_I8(&result);
}

void HostObject::invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                        VARIANT* result) const {
    if (isNothing())
        throw RuntimeError(91, "Object variable or With block variable not set");
    DISPID member = 0;
    auto names = const_cast<LPOLESTR>(name);
    HRESULT done = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(done))
        throw errorFor(done);
    std::vector<VARIANT> values(arguments);
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool puts = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS passed{values.data(), puts ? &newValue : nullptr, static_cast<UINT>(values.size()),
                      puts ? 1u : 0u};
    ObjectException exception;
    UINT wrongArgument = 0;
    done = object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed, result, &exception,
                           &wrongArgument);
    if (done == DISP_E_EXCEPTION)
        throw exception.error();
    if (FAILED(done))
        throw errorFor(done);
}

} // namespace qrtVistrelClasses4
