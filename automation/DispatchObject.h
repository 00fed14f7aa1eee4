// The base of all automation objects.
#pragma once

#include "automation/ComObject.h"
#include "automation/ErrorResults.h"
#include "automation/InterfaceTable.h"
#include "automation/LateBoundCall.h"
#include "automation/Values.h"
#include "frame/ErrorTrap.h"
#include "frame/LastErrorAccess.h"
#include "frame/ObjectCall.h"

#include <ocidl.h>
#include <ole2.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {

/// An automation object of class `Coclass`. The members of its dual interface `Interface` call the library's
/// class `CoreClass`. The module's type library describes `Coclass` and `Interface`.
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
        if (index != 0)
            return DISP_E_BADINDEX;
        const HRESULT loaded = loadTable();
        return FAILED(loaded) ? loaded : table_->type().CopyTo(result);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const HRESULT loaded = loadTable();
        return FAILED(loaded) ? loaded : table_->idsOf(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override {
        return run([&] {
            const HRESULT loaded = loadTable();
            return FAILED(loaded) ? loaded
                                  : CallLateBound(*table_, calledObject(), {member, locale, flags},
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

    LastError& lastError() const { return LastErrorAccess::of(*core_); }

    /// Runs the body of a member. Returns S_OK, or the result code of the error that the body throws, which
    /// is the object's last error then, whoever threw it. The object lives until the body has ended, even if
    /// a callback releases its last reference.
    template <class Body>
    HRESULT run(Body body) {
        const ComPtr<Interface> alive(this);
        return ResultOf(__uuidof(Interface), [&] {
            try {
                return body();
            } catch (...) {
                NoteCurrentError(ObjectCall(lastError()));
                throw;
            }
        });
    }
    /// Runs the body of a member like `run`, and stores the body's value in `*result`. After an error
    /// `*result` is empty.
    template <class Result, class Body>
    HRESULT runInto(Result* result, Body body) {
        if (!result)
            return E_POINTER;
        *result = Result{};
        return run([&] { ToAutomation(body(), result); });
    }

    // Each of these is a whole member: it calls the library's member that has the same name.
    HRESULT call(void (Core::*method)()) {
        return run([&] { ((*core_).*method)(); });
    }
    template <class Value, class Result>
    HRESULT get(Value (Core::*getter)(), Result* result) {
        return runInto(result, [&] { return ((*core_).*getter)(); });
    }
    template <class Value, class Result>
    HRESULT get(Value (Core::*getter)() const, Result* result) {
        return runInto(result, [&] { return ((*core_).*getter)(); });
    }
    template <class Value, class Given>
    HRESULT put(void (Core::*setter)(Value), Given vData) {
        return run([&] { ((*core_).*setter)(FromAutomation<std::remove_cvref_t<Value>>(vData)); });
    }

    /// Gives the object `given` of this module the content of `made`. Both have the same interface, one that
    /// a member of `Interface` sets variables to.
    virtual void fill(IDispatch& /*given*/, IDispatch& /*made*/) {}

    std::shared_ptr<Core> core_;

private:
    CalledObject calledObject() {
        return {static_cast<Interface*>(this),
                [this](IDispatch& given, IDispatch& made) { fill(given, made); }};
    }
    HRESULT loadTable() {
        return table_ ? S_OK : run([&] { return InterfaceTable::load(__uuidof(Interface), &table_); });
    }

    std::shared_ptr<const InterfaceTable> table_; ///< Null until it is needed.
};

} // namespace qrtVistrelClasses4
