#include "automation/Registration.h"

#include "automation/PublicClasses.h"

#include <ole2.h>
#include <olectl.h>
#include <qrtVistrelClasses4.h>

#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

std::wstring braced(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

std::wstring classKey(const PublicClass& type) { return L"CLSID\\" + braced(type.id); }

std::wstring programName(const PublicClass& type) { return L"qrtVistrelClasses4." + std::wstring(type.name); }

bool write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(), bytes) ==
           ERROR_SUCCESS;
}

bool remove(const std::wstring& key) {
    const LSTATUS done = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    return done == ERROR_SUCCESS || done == ERROR_FILE_NOT_FOUND;
}

/// True if a server of the other bitness is registered, which uses the same program name.
bool isRegisteredForOthers(const PublicClass& type) {
    const REGSAM otherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY key = nullptr;
    const std::wstring name = classKey(type) + L"\\InprocServer32";
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_READ | otherView, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

bool registerClass(const PublicClass& type) {
    const std::wstring key = classKey(type);
    const std::wstring name = programName(type);
    return write(key, nullptr, name) && write(key + L"\\InprocServer32", nullptr, ModulePath()) &&
           write(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
           write(key + L"\\ProgID", nullptr, name) && write(key + L"\\Programmable", nullptr, L"") &&
           write(key + L"\\TypeLib", nullptr, braced(LIBID_qrtVistrelClasses4)) &&
           write(key + L"\\Version", nullptr, L"4.0") && write(name, nullptr, name) &&
           write(name + L"\\CLSID", nullptr, braced(type.id));
}

HRESULT registerTypeLibrary() {
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadModuleTypeLibrary(&library);
    return FAILED(loaded) ? loaded : RegisterTypeLib(library.Get(), ModulePath().data(), nullptr);
}

bool isTypeLibraryRegistered() {
    const std::wstring key = L"TypeLib\\" + braced(LIBID_qrtVistrelClasses4) + L"\\4.0\\0\\" +
                             (kSystem == SYS_WIN64 ? L"win64" : L"win32");
    return RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
}

bool unregisterTypeLibrary() {
    return !isTypeLibraryRegistered() ||
           SUCCEEDED(UnRegisterTypeLib(LIBID_qrtVistrelClasses4, 4, 0, LOCALE_NEUTRAL, kSystem));
}

} // namespace

HRESULT RegisterClasses() {
    const HRESULT done = registerTypeLibrary();
    if (FAILED(done))
        return done;
    for (const PublicClass& type : PublicClasses())
        if (!registerClass(type))
            return SELFREG_E_CLASS;
    return S_OK;
}

HRESULT UnregisterClasses() {
    bool done = unregisterTypeLibrary();
    for (const PublicClass& type : PublicClasses()) {
        done = remove(classKey(type)) && done;
        if (!isRegisteredForOthers(type))
            done = remove(programName(type)) && done;
    }
    return done ? S_OK : SELFREG_E_CLASS;
}

} // namespace qrtVistrelClasses4
