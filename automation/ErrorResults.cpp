#include "automation/ErrorResults.h"

#include "automation/Module.h"
#include "automation/Values.h"
#include "frame/ErrorTrap.h"

#include <ole2.h>

namespace qrtVistrelClasses4 {
namespace {

/// The result code of a run-time error is this plus its number.
constexpr unsigned kRuntimeErrors = 0x800A0000;

void setErrorInfo(const RuntimeError& error, REFIID iid) {
    ComPtr<ICreateErrorInfo> created;
    ComPtr<IErrorInfo> info;
    if (FAILED(CreateErrorInfo(&created)) || FAILED(created.As(&info)))
        return;
    created->SetGUID(iid);
    created->SetSource(WideText("qrtVistrelClasses4").get());
    created->SetDescription(WideText(error.description()).get());
    SetErrorInfo(0, info.Get());
}

} // namespace

HRESULT ResultOfCurrentError(REFIID iid) noexcept {
    try {
        const RuntimeError error = CurrentError();
        setErrorInfo(error, iid);
        return static_cast<HRESULT>(kRuntimeErrors | static_cast<unsigned>(error.number() & 0xFFFF));
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

} // namespace qrtVistrelClasses4
