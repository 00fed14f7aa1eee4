// What the tests of automation objects have in common: a thread that may use them, values, calls by name, and
// objects of a host.
#pragma once

#include "automation/ComObject.h"
#include "automation/Values.h"

#include <gtest/gtest.h>
#include <ole2.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// Lets a thread use automation objects.
struct Apartment {
    Apartment() { CoInitialize(nullptr); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

class AutomationTest : public testing::Test {
    const Apartment apartment_;
};

/// A VARIANT of a kind that scripts pass.
struct Value : OwnedVariant {
    Value() = default;
    Value(int number) : Value(VT_I4) { V_I4(this) = number; }
    Value(double number) : Value(VT_R8) { V_R8(this) = number; }
    Value(bool flag) : Value(VT_BOOL) { V_BOOL(this) = flag ? VARIANT_TRUE : VARIANT_FALSE; }
    Value(const char* text) : Value(VT_BSTR) { V_BSTR(this) = WideText(text).release(); }
    Value(IDispatch* object) : Value(VT_DISPATCH) { V_DISPATCH(this) = ComPtr<IDispatch>(object).Detach(); }
    Value(const Value& other) { VariantCopy(this, const_cast<Value*>(&other)); }
    Value& operator=(Value other) {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }

    /// An argument that is left out.
    static Value omitted() {
        Value value(VT_ERROR);
        V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
        return value;
    }
    /// A reference to a variable. In some languages variables have a type.
    static Value reference(void* variable, int type = VT_VARIANT) {
        Value value(static_cast<VARENUM>(VT_BYREF | type));
        V_BYREF(&value) = variable;
        return value;
    }

private:
    explicit Value(VARENUM type) { V_VT(this) = static_cast<VARTYPE>(type); }
};

/// The result of a late-bound call.
struct CallResult {
    HRESULT code = S_OK;
    Value value;
    int wrongArgument = -1; ///< Counted from 0, from the last one.
};

constexpr WORD kUse = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr WORD kSet = DISPATCH_PROPERTYPUT;

/// Calls `name` of `object` as scripts do. `arguments` are listed from first to last.
inline CallResult Call(IDispatch* object, const char* name, const std::vector<Value>& arguments = {},
                       WORD flags = kUse) {
    CallResult result;
    DISPID member = 0;
    const OwnedBstr wide = WideText(name);
    LPOLESTR names = wide.get();
    result.code = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(result.code))
        return result;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS passed{reversed.data(), &newValue, static_cast<UINT>(reversed.size()),
                      flags == kSet ? 1u : 0u};
    UINT wrongArgument = static_cast<UINT>(-1);
    result.code = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed, &result.value,
                                 nullptr, &wrongArgument);
    result.wrongArgument = static_cast<int>(wrongArgument);
    return result;
}

/// A new object of a registered class.
template <class Interface>
ComPtr<Interface> Create(REFCLSID id) {
    ComPtr<Interface> object;
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object))))
        throw std::runtime_error("The server is not registered");
    return object;
}

/// An object of a host. It has a member of every name.
class FakeHostObject : public ComObject<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        member_ = NarrowText(OwnedBstr(SysAllocString(*names)).get());
        *ids = 1;
        return S_OK;
    }

protected:
    std::string member_; ///< The one that is called next.
};

} // namespace qrtVistrelClasses4
