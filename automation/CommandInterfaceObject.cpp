#include "automation/PublicClasses.h"
#include <qrtVistrelClasses4/RuntimeError.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <qrtVistrelClasses4Members.h>

#include <algorithm>
#include <new>

namespace qrtVistrelClasses4 {
namespace {

// Keys and byte strings are not texts of a code page. Here the character with code n is the byte n.

bool holdsBytes(BSTR text) {
    return std::all_of(text, text + SysStringLen(text), [](OLECHAR character) { return character <= 0xff; });
}

/// Throws error 5 if `text` has a character above 255.
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

class CommandInterfaceObject : public clsCommandInterfaceMembers<clsCommandInterface> {
public:
    STDMETHODIMP get_sCommandKeyByNum(short iCommand, BSTR* result) override {
        return giveBytes(result, [&] { return core_->sCommandKeyByNum(iCommand); });
    }
    STDMETHODIMP get_sCommandBytesByKey(BSTR sKey, BSTR* result) override {
        if (result && !holdsBytes(sKey)) { // no row has such a key, and an unknown key is returned unchanged
            lastError().begin();
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
