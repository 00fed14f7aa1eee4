// Identity and lifetime of the module's objects.
#pragma once

#include "automation/Module.h"

#include <atomic>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {

#ifdef __GNUC__
// Interfaces of the system have no virtual destructor: objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif
/// An object with the interfaces `Faces`.
template <class... Faces>
class ComObject : public Faces... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (!result)
            return E_POINTER;
        *result = nullptr;
        if (!(offer<Faces>(iid, result) || ...))
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
    template <class Face>
    bool offer(REFIID iid, void** result) {
        if (iid != __uuidof(Face) && iid != IID_IUnknown &&
            !(std::is_base_of_v<IDispatch, Face> && iid == IID_IDispatch))
            return false;
        *result = static_cast<Face*>(this);
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
