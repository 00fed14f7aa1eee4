// The functions that the module exports, and the class objects that they return.
#include "automation/ComObject.h"
#include "automation/ErrorResults.h"
#include "automation/InterfaceTable.h"
#include "automation/PublicClasses.h"
#include "automation/Registration.h"

#include <olectl.h>

namespace qrtVistrelClasses4 {
namespace {

class ClassObject : public ComObject<IClassFactory> {
public:
    explicit ClassObject(const PublicClass& type) : type_(type) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** result) override {
        if (!result)
            return E_POINTER;
        *result = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return ResultOf(IID_IClassFactory, [&] { return type_.make()->QueryInterface(iid, result); });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? ModuleUse::begin() : ModuleUse::end();
        return S_OK;
    }

private:
    const PublicClass& type_;
};

} // namespace
} // namespace qrtVistrelClasses4

using namespace qrtVistrelClasses4;

STDAPI DllGetClassObject(REFCLSID id, REFIID iid, void** result) {
    if (!result)
        return E_POINTER;
    *result = nullptr;
    return ResultOf(IID_IClassFactory, [&]() -> HRESULT {
        for (const PublicClass& type : PublicClasses())
            if (type.id == id)
                return MakeObject<ClassObject>(type)->QueryInterface(iid, result);
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

STDAPI DllCanUnloadNow() {
    if (!ModuleUse::isOver())
        return S_FALSE;
    InterfaceTable::releaseKept(); // on some systems they keep the module loaded
    return S_OK;
}

/// The module may also be unloaded without a question. At the end of the process nothing is released.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD event, void* processEnds) {
    if (event == DLL_PROCESS_DETACH && !processEnds)
        InterfaceTable::releaseKept();
    return TRUE;
}

STDAPI DllRegisterServer() {
    return ResultOf(IID_IUnknown, [] {
        const HRESULT done = RegisterClasses();
        if (FAILED(done))
            UnregisterClasses();
        return done;
    });
}

STDAPI DllUnregisterServer() {
    return ResultOf(IID_IUnknown, [] { return UnregisterClasses(); });
}
