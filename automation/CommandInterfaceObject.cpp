#include "automation/DispatchObject.h"
#include "automation/PublicClasses.h"
#include "commands/clsCommandInterface.h"
#include "frame/RuntimeError.h"

#include <qrtVistrelClasses4.h>

#include <algorithm>
#include <new>

namespace qrtVistrelClasses4 {
namespace {

// Keys and byte strings are no texts of a code page: the character with code n is the byte n.

bool holdsBytes(BSTR text) {
    return std::all_of(text, text + SysStringLen(text), [](OLECHAR character) { return character <= 0xff; });
}

/// Error 5 for a character that is no byte.
std::string bytesOf(BSTR text) {
    if (!holdsBytes(text))
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return {text, text + SysStringLen(text)};
}

BSTR textOf(const std::string& bytes) {
    BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(bytes.size()));
    if (!text)
        throw std::bad_alloc();
    std::transform(bytes.begin(), bytes.end(), text,
                   [](char byte) { return static_cast<OLECHAR>(static_cast<unsigned char>(byte)); });
    return text;
}

class CommandInterfaceObject
    : public DispatchObject<_clsCommandInterface, ::clsCommandInterface, clsCommandInterface> {
public:
    STDMETHODIMP get_iTotalCommands(short* result) override { return get(&Core::iTotalCommands, result); }
    STDMETHODIMP get_sCommandKeyByNum(short iCommand, BSTR* result) override {
        return giveBytes(result, [&] { return core_->sCommandKeyByNum(iCommand); });
    }
    STDMETHODIMP get_sCommandBytesByKey(BSTR sKey, BSTR* result) override {
        if (result && !holdsBytes(sKey)) { // no row has it, and an unknown key comes back as it is
            *result = SysAllocStringLen(sKey, SysStringLen(sKey));
            return *result ? S_OK : E_OUTOFMEMORY;
        }
        return giveBytes(result, [&] { return core_->sCommandBytesByKey(bytesOf(sKey)); });
    }
    STDMETHODIMP put_sCommandBytesByKey(BSTR sKey, BSTR vData) override {
        return run([&] { core_->sCommandBytesByKey(bytesOf(sKey), bytesOf(vData)); });
    }
    STDMETHODIMP get_sCommandBytesByNum(short iCommand, BSTR* result) override {
        return giveBytes(result, [&] { return core_->sCommandBytesByNum(iCommand); });
    }
    STDMETHODIMP put_sCommandBytesByNum(short iCommand, BSTR vData) override {
        return run([&] { core_->sCommandBytesByNum(iCommand, bytesOf(vData)); });
    }
    STDMETHODIMP SortCommandByLargestFirst() override {
        return run([&] { core_->SortCommandByLargestFirst(); });
    }

private:
    template <class Body>
    HRESULT giveBytes(BSTR* result, Body body) {
        if (!result)
            return E_POINTER;
        *result = nullptr;
        return run([&] { *result = textOf(body()); });
    }
};

} // namespace

ComPtr<IDispatch> MakeCommandInterfaceObject() { return MakeObject<CommandInterfaceObject>(); }

} // namespace qrtVistrelClasses4
