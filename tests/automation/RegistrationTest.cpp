// What the server's four functions do.
#include "AutomationTesting.h"

#include <olectl.h>
#include <qrtVistrelClasses4.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace qrtVistrelClasses4 {
namespace {

using Lines = std::set<std::wstring>;

/// Adds a line for each key below `key`, and for each of its values.
void dump(HKEY parent, const std::wstring& name, const std::wstring& path, Lines& lines) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    lines.insert(path);
    wchar_t part[512];
    wchar_t text[1024];
    DWORD partLength = std::size(part);
    DWORD textBytes = sizeof text - sizeof(wchar_t);
    for (DWORD index = 0; RegEnumValueW(key, index, part, &partLength, nullptr, nullptr,
                                        reinterpret_cast<BYTE*>(text), &textBytes) == ERROR_SUCCESS;
         ++index, partLength = std::size(part), textBytes = sizeof text - sizeof(wchar_t)) {
        text[textBytes / sizeof(wchar_t)] = L'\0';
        lines.insert(path + L" " + part + L"=" + text);
    }
    for (DWORD index = 0; RegEnumKeyW(key, index, part, std::size(part)) == ERROR_SUCCESS; ++index)
        dump(key, part, path + L"\\" + part, lines);
    RegCloseKey(key);
}

Lines dumpOfClasses() {
    Lines lines;
    for (const wchar_t* key : {L"CLSID", L"TypeLib", L"Interface"})
        dump(HKEY_CLASSES_ROOT, key, key, lines);
    wchar_t name[512];
    for (DWORD index = 0; RegEnumKeyW(HKEY_CLASSES_ROOT, index, name, std::size(name)) == ERROR_SUCCESS;
         ++index)
        if (std::wstring_view(name).starts_with(L"qrtVistrelClasses4"))
            dump(HKEY_CLASSES_ROOT, name, name, lines);
    return lines;
}

std::wstring serverPath() {
    wchar_t path[1024] = L"";
    DWORD bytes = sizeof path;
    RegGetValueW(HKEY_CLASSES_ROOT, L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}\\InprocServer32", nullptr,
                 RRF_RT_REG_SZ, nullptr, path, &bytes);
    return path;
}

/// The registered server; registered again in the end.
class Server : public AutomationTest {
protected:
    Server() : path_(serverPath()), module_(LoadLibraryW(path_.c_str())) {}
    ~Server() override {
        run("DllRegisterServer");
        FreeLibrary(module_);
    }

    template <class Function>
    Function* find(const char* name) {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }
    HRESULT run(const char* name) { return find<HRESULT STDAPICALLTYPE()>(name)(); }
    HRESULT getClassObject(REFCLSID id, REFIID iid, void** result) {
        return find<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject")(id, iid, result);
    }

    const std::wstring path_;
    const HMODULE module_;
};

TEST_F(Server, LeavesTheRegistryAsItWas) {
    ASSERT_TRUE(module_);
    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    const Lines before = dumpOfClasses();
    ASSERT_EQ(run("DllRegisterServer"), S_OK);
    const Lines registered = dumpOfClasses();
    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    EXPECT_EQ(dumpOfClasses(), before);
    EXPECT_EQ(run("DllUnregisterServer"), S_OK) << "nothing left to remove is no failure";

    const Lines wanted = {
        L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08} =qrtVistrelClasses4.FrameInfoClass",
        L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}\\InprocServer32 =" + path_,
        L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}\\InprocServer32 ThreadingModel=Apartment",
        L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}\\ProgID =qrtVistrelClasses4.FrameInfoClass",
        L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}\\TypeLib ={2CED4AC9-38EF-44C1-B849-2452F0C70990}",
        L"CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}\\Version =4.0",
        L"qrtVistrelClasses4.SettingsInfoClass\\CLSID ={BBB8EF58-3601-4A20-A2DC-0D4A387A04DF}",
        L"TypeLib\\{2CED4AC9-38EF-44C1-B849-2452F0C70990}\\4.0\\0\\win64 =" + path_,
        L"Interface\\{5C5E91D6-C0E0-4DFD-8E69-C7F548FD2428} =_FrameInfoClass",
        L"Interface\\{B9F001E0-54AE-41E1-9108-C0B9246D68B7}\\TypeLib ={2CED4AC9-38EF-44C1-B849-2452F0C70990}",
    };
    Lines missing;
    std::ranges::set_difference(wanted, registered, std::inserter(missing, missing.end()));
    EXPECT_EQ(missing, Lines());
}

TEST_F(Server, StaysLoadedWhileItIsUsed) {
    EXPECT_EQ(run("DllCanUnloadNow"), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(getClassObject(CLSID_FrameInfoClass, IID_PPV_ARGS(&factory)), S_OK);
    ComPtr<IUnknown> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)), S_OK);
    factory.Reset();
    EXPECT_EQ(run("DllCanUnloadNow"), S_FALSE) << "an object lives";
    object.Reset();
    EXPECT_EQ(run("DllCanUnloadNow"), S_OK);

    // A lock outlives the class object that set it.
    for (const BOOL lock : {TRUE, FALSE}) {
        ASSERT_EQ(getClassObject(CLSID_FrameInfoClass, IID_PPV_ARGS(&factory)), S_OK);
        factory->LockServer(lock);
        factory.Reset();
        EXPECT_EQ(run("DllCanUnloadNow"), lock ? S_FALSE : S_OK);
    }
}

TEST_F(Server, HasNoOtherClasses) {
    void* object = this;
    EXPECT_EQ(getClassObject(IID__FrameInfoClass, IID_IUnknown, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(getClassObject(CLSID_FrameInfoClass, IID_IStream, &object), E_NOINTERFACE);
}

} // namespace
} // namespace qrtVistrelClasses4
