// What the tests of automation objects share: a thread that may use them, values, and calls by name.
#pragma once

#include "automation/Module.h"
#include "automation/Values.h"

#include <gtest/gtest.h>
#include <ole2.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// A thread that has entered its apartment.
class AutomationTest : public testing::Test {
protected:
    AutomationTest() { CoInitialize(nullptr); }
    ~AutomationTest() override { CoUninitialize(); }
};

/// A VARIANT with what scripts pass.
struct Value : OwnedVariant {
    Value() = default;
    Value(int number) : Value(VT_I4) { V_I4(this) = number; }
    Value(double number) : Value(VT_R8) { V_R8(this) = number; }
    Value(bool flag) : Value(VT_BOOL) { V_BOOL(this) = flag ? VARIANT_TRUE : VARIANT_FALSE; }
    Value(const char* text) : Value(VT_BSTR) { V_BSTR(this) = WideText(text).release(); }
    Value(IDispatch* object) : Value(VT_DISPATCH) { V_DISPATCH(this) = ComPtr<IDispatch>(object).Detach(); }
    Value(const Value& other) : OwnedVariant() { VariantCopy(this, const_cast<Value*>(&other)); }

    /// An argument that is left out.
    static Value omitted() {
        Value value(VT_ERROR);
        V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
        return value;
    }
    /// A variable, which has a type in some languages.
    static Value reference(void* variable, int type = VT_VARIANT) {
        Value value(static_cast<VARENUM>(VT_BYREF | type));
        V_BYREF(&value) = variable;
        return value;
    }

    std::string text() const { return V_VT(this) == VT_BSTR ? NarrowText(V_BSTR(this)) : "(no text)"; }

private:
    explicit Value(VARENUM type) { V_VT(this) = static_cast<VARTYPE>(type); }
};

/// What a late-bound call came to.
struct CallResult {
    HRESULT code = S_OK;
    Value value;
    UINT wrongArgument = 99;
};

/// Calls `name` of `object` as scripts do; arguments from first to last.
inline CallResult Call(IDispatch* object, const wchar_t* name, std::vector<Value> arguments = {},
                       WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
    CallResult result;
    DISPID member = 0;
    LPOLESTR names = const_cast<LPOLESTR>(name);
    result.code = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(result.code))
        return result;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID newValue = DISPID_PROPERTYPUT;
    const UINT named = flags == DISPATCH_PROPERTYPUT ? 1 : 0;
    DISPPARAMS passed{reversed.data(), &newValue, static_cast<UINT>(reversed.size()), named};
    result.code = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed, &result.value,
                                 nullptr, &result.wrongArgument);
    return result;
}
inline HRESULT SetProperty(IDispatch* object, const wchar_t* name, const Value& value) {
    return Call(object, name, {value}, DISPATCH_PROPERTYPUT).code;
}

/// A new object of a registered class.
template <class Interface>
ComPtr<Interface> Create(REFCLSID id) {
    ComPtr<Interface> object;
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object))))
        throw std::runtime_error("The server is not registered");
    return object;
}

} // namespace qrtVistrelClasses4
