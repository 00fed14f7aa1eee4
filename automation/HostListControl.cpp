#include "automation/HostListControl.h"

#include "automation/Values.h"
#include "frame/RuntimeError.h"

#include <ocidl.h>
#include <ole2.h>

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

VARIANT numberArgument(std::int32_t number) {
    VARIANT argument{};
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = number;
    return argument;
}

/// `text` stays the caller's.
VARIANT textArgument(const OwnedBstr& text) {
    VARIANT argument{};
    V_VT(&argument) = VT_BSTR;
    V_BSTR(&argument) = text.get();
    return argument;
}

/// What a control told of its error.
struct ControlException : EXCEPINFO {
    ControlException() : EXCEPINFO{} {}
    ~ControlException() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    ControlException(const ControlException&) = delete;
    ControlException& operator=(const ControlException&) = delete;

    RuntimeError error() {
        if (pfnDeferredFillIn)
            pfnDeferredFillIn(this);
        const int number = wCode != 0                                    ? wCode
                           : HRESULT_FACILITY(scode) == FACILITY_CONTROL ? HRESULT_CODE(scode)
                                                                         : 440;
        const std::string description = NarrowText(bstrDescription);
        return RuntimeError(number, description.empty() ? "Automation error" : description);
    }
};

RuntimeError errorFor(HRESULT refusal) {
    switch (refusal) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
        return RuntimeError(438, "Object doesn't support this property or method");
    case DISP_E_TYPEMISMATCH:
        return RuntimeError(ErrorNumber::typeMismatch);
    case DISP_E_OVERFLOW:
        return RuntimeError(ErrorNumber::overflow);
    default:
        return RuntimeError(440, "Automation error");
    }
}

/// The type that a control gives for itself: its class where it tells, else its interface.
ComPtr<ITypeInfo> typeOf(IDispatch& control) {
    ComPtr<ITypeInfo> type;
    ComPtr<IProvideClassInfo> provider;
    if (FAILED(control.QueryInterface(IID_PPV_ARGS(&provider))) || FAILED(provider->GetClassInfo(&type)))
        control.GetTypeInfo(0, LOCALE_USER_DEFAULT, &type);
    return type;
}

} // namespace

std::string HostListControl::ClassName() const {
    const ComPtr<ITypeInfo> type = typeOf(*control_.Get());
    BSTR name = nullptr;
    if (!type || FAILED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr)))
        return "Object";
    const OwnedBstr owned(name);
    const std::string text = NarrowText(name);
    return text.starts_with('_') ? text.substr(1) : text;
}

void HostListControl::Clear() { invoke(L"Clear", DISPATCH_METHOD, {}, nullptr); }

void HostListControl::AddItem(const std::string& text) {
    const OwnedBstr wide = WideText(text);
    invoke(L"AddItem", DISPATCH_METHOD, {textArgument(wide)}, nullptr);
}

std::int32_t HostListControl::NewIndex() { return readNumber(L"NewIndex"); }

void HostListControl::ItemData(std::int32_t index, std::int32_t data) {
    invoke(L"ItemData", DISPATCH_PROPERTYPUT, {numberArgument(data), numberArgument(index)}, nullptr);
}

std::int32_t HostListControl::ListCount() { return readNumber(L"ListCount"); }

void HostListControl::RemoveItem(std::int32_t index) {
    invoke(L"RemoveItem", DISPATCH_METHOD, {numberArgument(index)}, nullptr);
}

void HostListControl::invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                             VARIANT* result) {
    DISPID member = 0;
    LPOLESTR names = const_cast<LPOLESTR>(name);
    HRESULT done = control_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(done))
        throw errorFor(done);
    std::vector<VARIANT> values(arguments);
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool puts = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS passed{values.data(), puts ? &newValue : nullptr, static_cast<UINT>(values.size()),
                      puts ? 1u : 0u};
    ControlException exception;
    UINT wrongArgument = 0;
    done = control_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed, result, &exception,
                            &wrongArgument);
    if (done == DISP_E_EXCEPTION)
        throw exception.error();
    if (FAILED(done))
        throw errorFor(done);
}

std::int32_t HostListControl::readNumber(const wchar_t* name) {
    OwnedVariant result;
    invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &result);
    const HRESULT done = VariantChangeType(&result, &result, 0, VT_I4);
    if (FAILED(done))
        throw errorFor(done);
    return V_I4(&result);
}

} // namespace qrtVistrelClasses4
