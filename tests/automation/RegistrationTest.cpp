// What the server's four functions do.
#include "AutomationTesting.h"

#include <qrtVistrelClasses4.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace qrtVistrelClasses4 {
namespace {

using Lines = std::set<std::wstring>;

/// A line for each value of `key`, and for each key and value below it.
Lines dump(HKEY key, const std::wstring& path = L"") {
    Lines lines;
    wchar_t name[512];
    for (DWORD index = 0;; ++index) {
        wchar_t text[1024] = L"";
        DWORD nameLength = std::size(name), textBytes = sizeof text - sizeof *text;
        if (RegEnumValueW(key, index, name, &nameLength, nullptr, nullptr, reinterpret_cast<BYTE*>(text),
                          &textBytes) != ERROR_SUCCESS)
            break;
        lines.insert(path + L" " + name + L"=" + text);
    }
    for (DWORD index = 0; RegEnumKeyW(key, index, name, std::size(name)) == ERROR_SUCCESS; ++index) {
        HKEY below = nullptr;
        RegOpenKeyExW(key, name, 0, KEY_READ, &below);
        lines.insert(path + L"\\" + name);
        lines.merge(dump(below, path + L"\\" + name));
        RegCloseKey(below);
    }
    return lines;
}

/// The registered server; registered again in the end.
class Server : public AutomationTest {
protected:
    Server() {
        Create<IUnknown>(CLSID_FrameInfoClass);
        module_ = GetModuleHandleW(L"qrtVistrelClasses4.dll");
    }
    ~Server() override { run("DllRegisterServer"); }

    template <class... Arguments>
    HRESULT run(const char* name, Arguments... arguments) {
        using Function = HRESULT STDAPICALLTYPE(Arguments...);
        void* const found = reinterpret_cast<void*>(GetProcAddress(module_, name));
        return reinterpret_cast<Function*>(found)(arguments...);
    }
    HRESULT getClassObject(REFCLSID id, REFIID iid, void** result) {
        return run<REFCLSID, REFIID, void**>("DllGetClassObject", id, iid, result);
    }

    HMODULE module_;
};

TEST_F(Server, LeavesTheRegistryAsItWas) {
    wchar_t path[1024] = L"";
    GetModuleFileNameW(module_, path, std::size(path));
    BSTR libraryPath = nullptr;
    EXPECT_EQ(QueryPathOfRegTypeLib(LIBID_qrtVistrelClasses4, 4, 0, LOCALE_NEUTRAL, &libraryPath), S_OK);
    EXPECT_STREQ(OwnedBstr(libraryPath).get(), path);

    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    const Lines before = dump(HKEY_CLASSES_ROOT);
    ASSERT_EQ(run("DllRegisterServer"), S_OK);
    const Lines registered = dump(HKEY_CLASSES_ROOT);
    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    EXPECT_EQ(dump(HKEY_CLASSES_ROOT), before);
    EXPECT_EQ(run("DllUnregisterServer"), S_OK) << "nothing left to remove is no failure";

    const std::wstring frameInfoClass = L"\\CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}";
    const std::wstring library = L"{2CED4AC9-38EF-44C1-B849-2452F0C70990}";
    const Lines wanted = {
        frameInfoClass + L" =qrtVistrelClasses4.FrameInfoClass",
        frameInfoClass + L"\\InprocServer32 =" + path,
        frameInfoClass + L"\\InprocServer32 ThreadingModel=Apartment",
        frameInfoClass + L"\\ProgID =qrtVistrelClasses4.FrameInfoClass",
        frameInfoClass + L"\\TypeLib =" + library,
        frameInfoClass + L"\\Version =4.0",
        L"\\qrtVistrelClasses4.SettingsInfoClass\\CLSID ={BBB8EF58-3601-4A20-A2DC-0D4A387A04DF}",
        L"\\Interface\\{5C5E91D6-C0E0-4DFD-8E69-C7F548FD2428} =_FrameInfoClass",
        L"\\Interface\\{B9F001E0-54AE-41E1-9108-C0B9246D68B7}\\TypeLib =" + library,
    };
    Lines missing;
    std::ranges::set_difference(wanted, registered, std::inserter(missing, missing.end()));
    EXPECT_EQ(missing, Lines());
}

/// What an application puts beside itself in place of a registration.
constexpr char kManifest[] = R"(<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="Test" version="1.0.0.0"/>
  <file name="qrtVistrelClasses4.dll">
    <comClass clsid="{9AE6AD44-C589-4050-9359-78F603D30A08}" progid="qrtVistrelClasses4.FrameInfoClass"
              threadingModel="Apartment"/>
  </file>
</assembly>)";

TEST_F(Server, IsFoundByAManifestWithoutRegistration) {
    wchar_t path[1024] = L"";
    GetModuleFileNameW(module_, path, std::size(path));
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    const std::filesystem::path manifest = folder / "Test.manifest";
    std::ofstream(manifest) << kManifest;
    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    ComPtr<_FrameInfoClass> playfile;
    const auto create = [&] {
        return CoCreateInstance(CLSID_FrameInfoClass, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&playfile));
    };
    EXPECT_EQ(create(), REGDB_E_CLASSNOTREG);

    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    const HANDLE context = CreateActCtxW(&description);
    ULONG_PTR cookie = 0;
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(Call(playfile.Get(), L"TotalFrames").value.lVal, 20) << "its type library is found as well";
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
    std::filesystem::remove(manifest);
}

TEST_F(Server, StaysLoadedWhileItIsUsed) {
    EXPECT_EQ(run("DllCanUnloadNow"), S_OK);
    ComPtr<IUnknown> object = Create<IUnknown>(CLSID_FrameInfoClass);
    EXPECT_EQ(run("DllCanUnloadNow"), S_FALSE) << "an object lives";
    object.Reset();
    EXPECT_EQ(run("DllCanUnloadNow"), S_OK);

    for (const BOOL lock : {TRUE, FALSE}) {
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(getClassObject(CLSID_FrameInfoClass, IID_PPV_ARGS(&factory)), S_OK);
        factory->LockServer(lock);
        factory.Reset();
        EXPECT_EQ(run("DllCanUnloadNow"), lock ? S_FALSE : S_OK) << "a lock outlives who set it";
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
