// Identity and lifetime of COM objects.
#pragma once

#include "automation/Module.h"

#include <atomic>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {

#ifdef __GNUC__
// The system's interfaces have no virtual destructor, because COM objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif
/// An object that implements `Interfaces`. It counts its references, deletes itself with the last one, and
/// keeps the module loaded until then.
template <class... Interfaces>
class ComObject : public Interfaces... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (!result)
            return E_POINTER;
        *result = nullptr;
        if (!(castTo<Interfaces>(iid, result) || ...))
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    /// Returns false if `iid` is not `Interface` or one of its bases.
    template <class Interface>
    bool castTo(REFIID iid, void** result) {
        if (iid != __uuidof(Interface) && iid != IID_IUnknown &&
            !(std::is_base_of_v<IDispatch, Interface> && iid == IID_IDispatch))
            return false;
        *result = static_cast<Interface*>(this);
        return true;
    }

    ModuleUse keepsModuleLoaded_;
    std::atomic<ULONG> references_ = 0;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

template <class Object, class... Arguments>
ComPtr<Object> MakeObject(Arguments&&... arguments) {
    return new Object(std::forward<Arguments>(arguments)...);
}

} // namespace qrtVistrelClasses4
