// What all automation objects share.
#pragma once

#include "automation/ComObject.h"
#include "automation/ErrorResults.h"
#include "automation/LateBoundCall.h"
#include "automation/Values.h"

#include <ocidl.h>
#include <ole2.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {

/// An object of class `Coclass`: the members of its dual interface `Interface` call the library's class
/// `CoreClass`. The type library of the module describes both.
template <class Interface, class Coclass, class CoreClass>
class DispatchObject : public ComObject<Interface, ISupportErrorInfo, IProvideClassInfo> {
public:
    DispatchObject() : DispatchObject(std::make_shared<CoreClass>()) {}
    explicit DispatchObject(std::shared_ptr<CoreClass> core) : core_(std::move(core)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** result) override {
        return index == 0 ? loadTypeInfo(result) : DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        ComPtr<ITypeInfo> type;
        const HRESULT loaded = loadTypeInfo(&type);
        return FAILED(loaded) ? loaded : DispGetIDsOfNames(type.Get(), names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override {
        return run([&] {
            ComPtr<ITypeInfo> type;
            const HRESULT loaded = loadTypeInfo(&type);
            return FAILED(loaded)
                       ? loaded
                       : CallLateBound(*type.Get(), static_cast<Interface*>(this), {member, locale, flags},
                                       *arguments, result, exception, wrongArgument);
        });
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == __uuidof(Interface) ? S_OK : S_FALSE;
    }
    STDMETHODIMP GetClassInfo(ITypeInfo** result) override {
        return run([&] { return LoadModuleTypeInfo(__uuidof(Coclass), result); });
    }

protected:
    using Core = CoreClass;

    /// Runs the body of a member; its error becomes the member's result code. The object lives until then,
    /// even if the host lets go of it while it is called back.
    template <class Body>
    HRESULT run(Body body) {
        const ComPtr<Interface> alive(this);
        return ResultOf(__uuidof(Interface), body);
    }
    /// Runs the body of a member that has a result.
    template <class Result, class Body>
    HRESULT give(Result* result, Body body) {
        if (!result)
            return E_POINTER;
        *result = Result{}; // what a caller finds there after an error
        return run([&] { ToAutomation(body(), result); });
    }

    template <class Value, class Result>
    HRESULT get(Value (Core::*getter)(), Result* result) {
        return give(result, [&] { return ((*core_).*getter)(); });
    }
    template <class Value, class Result>
    HRESULT get(Value (Core::*getter)() const, Result* result) {
        return give(result, [&] { return ((*core_).*getter)(); });
    }
    template <class Value, class Given>
    HRESULT put(void (Core::*setter)(Value), Given vData) {
        return run([&] { ((*core_).*setter)(FromAutomation<std::remove_cvref_t<Value>>(vData)); });
    }

    std::shared_ptr<Core> core_;

private:
    HRESULT loadTypeInfo(ITypeInfo** result) {
        if (!typeInfo_) {
            const HRESULT loaded = run([&] { return LoadModuleTypeInfo(__uuidof(Interface), &typeInfo_); });
            if (FAILED(loaded))
                return loaded;
        }
        return typeInfo_.CopyTo(result);
    }

    ComPtr<ITypeInfo> typeInfo_; ///< Loaded when first asked for.
};

/// One line of an adaptor: a property of the interface with getter and setter, over that of the library.
#define QRT_PROPERTY(Type, Name)                                                                             \
    STDMETHODIMP get_##Name(Type* result) override { return get(&Core::Name, result); }                      \
    STDMETHODIMP put_##Name(Type vData) override { return put(&Core::Name, vData); }

} // namespace qrtVistrelClasses4
