// What the tests of automation objects share: a thread that may use them, values, and calls by name.
#pragma once

#include "automation/Module.h"
#include "automation/Values.h"

#include <gtest/gtest.h>
#include <ole2.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// A thread that has entered its apartment.
class AutomationTest : public testing::Test {
protected:
    AutomationTest() { CoInitialize(nullptr); }
    ~AutomationTest() override { CoUninitialize(); }
};

/// A VARIANT that owns what it holds.
struct Value : VARIANT {
    Value() { VariantInit(this); }
    Value(int number) : Value() {
        V_VT(this) = VT_I4;
        V_I4(this) = number;
    }
    Value(double number) : Value() {
        V_VT(this) = VT_R8;
        V_R8(this) = number;
    }
    Value(bool flag) : Value() {
        V_VT(this) = VT_BOOL;
        V_BOOL(this) = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Value(const char* text) : Value() {
        V_VT(this) = VT_BSTR;
        V_BSTR(this) = WideText(text).release();
    }
    Value(IDispatch* object) : Value() {
        V_VT(this) = VT_DISPATCH;
        V_DISPATCH(this) = object;
        if (object)
            object->AddRef();
    }
    Value(const Value& other) : Value() { VariantCopy(this, const_cast<Value*>(&other)); }
    Value& operator=(const Value&) = delete;
    ~Value() { VariantClear(this); }

    /// What scripts pass for an argument that they leave out.
    static Value omitted() {
        Value value;
        V_VT(&value) = VT_ERROR;
        V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
        return value;
    }
    /// A variable of a script, passed by reference.
    static Value referenceTo(VARIANT& variable) { return reference(VT_VARIANT, &variable); }
    /// A variable of type `type`, passed by reference.
    static Value reference(VARTYPE type, void* variable) {
        Value value;
        V_VT(&value) = static_cast<VARTYPE>(VT_BYREF | type);
        V_BYREF(&value) = variable;
        return value;
    }

    std::string text() const { return V_VT(this) == VT_BSTR ? NarrowText(V_BSTR(this)) : "(no text)"; }
};

/// What a late-bound call came to.
struct CallResult {
    HRESULT code = S_OK;
    Value value;
    HRESULT exceptionCode = S_OK; ///< What the member itself answered.
    std::string description;
    std::string source;
    UINT wrongArgument = 99;
};

/// Calls `name` of `object` as scripts do; arguments from first to last.
inline CallResult Call(IDispatch& object, WORD flags, const wchar_t* name,
                       std::vector<Value> arguments = {}) {
    CallResult result;
    DISPID member = 0;
    LPOLESTR names = const_cast<LPOLESTR>(name);
    result.code = object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(result.code))
        return result;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool puts = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS passed{reversed.data(), puts ? &newValue : nullptr, static_cast<UINT>(reversed.size()),
                      puts ? 1u : 0u};
    EXCEPINFO exception{};
    result.code = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed, &result.value,
                                &exception, &result.wrongArgument);
    result.exceptionCode = exception.scode;
    result.description = NarrowText(OwnedBstr(exception.bstrDescription).get());
    result.source = NarrowText(OwnedBstr(exception.bstrSource).get());
    SysFreeString(exception.bstrHelpFile);
    return result;
}
inline CallResult CallMethod(IDispatch& object, const wchar_t* name, std::vector<Value> arguments = {}) {
    return Call(object, DISPATCH_METHOD, name, std::move(arguments));
}
inline CallResult GetProperty(IDispatch& object, const wchar_t* name) {
    return Call(object, DISPATCH_METHOD | DISPATCH_PROPERTYGET, name);
}
inline HRESULT SetProperty(IDispatch& object, const wchar_t* name, const Value& value) {
    return Call(object, DISPATCH_PROPERTYPUT, name, {value}).code;
}

/// A new object of a registered class.
template <class Interface>
ComPtr<Interface> Create(REFCLSID id) {
    ComPtr<Interface> object;
    const HRESULT done = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    if (FAILED(done))
        throw std::runtime_error("The server is not registered");
    return object;
}

} // namespace qrtVistrelClasses4
