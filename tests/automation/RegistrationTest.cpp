// What the server's four functions do.
#include "AutomationTesting.h"

#include <gmock/gmock.h>
#include <qrtVistrelClasses4.h>

#include <cstdio>
#include <filesystem>
#include <iterator>
#include <thread>

namespace qrtVistrelClasses4 {
namespace {

using testing::HasSubstr;

/// Keys and values of `key` and below, without blank lines and ends of lines.
std::string registered(const std::string& key) {
    std::string text;
    std::FILE* const answer = _popen(("reg query " + key + " /s").c_str(), "r");
    for (char line[4096]; std::fgets(line, sizeof line, answer);) {
        text += line;
        text.erase(text.find_last_not_of(" \n") + 1) += '\n';
    }
    _pclose(answer);
    return text;
}

/// The registered server. It is registered again at the end.
class Server : public AutomationTest {
protected:
    Server() {
        Create<IUnknown>(CLSID_FrameInfoClass);
        module_ = GetModuleHandleW(L"qrtVistrelClasses4.dll");
        wchar_t path[1024] = L"";
        GetModuleFileNameW(module_, path, std::size(path));
        path_ = path;
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
    std::filesystem::path path_;
};

TEST_F(Server, LeavesTheRegistryAsItWas) {
    BSTR libraryPath = nullptr;
    EXPECT_EQ(QueryPathOfRegTypeLib(LIBID_qrtVistrelClasses4, 4, 0, LOCALE_NEUTRAL, &libraryPath), S_OK);
    EXPECT_EQ(OwnedBstr(libraryPath).get(), path_);

    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    const std::string before = registered("HKCR");
    EXPECT_EQ(before.find("qrtVistrelClasses4"), before.npos);
    EXPECT_EQ(before.find("{2CED4AC9-38EF-44C1-B849-2452F0C70990}"), before.npos);
    ASSERT_EQ(run("DllRegisterServer"), S_OK);
    EXPECT_EQ(registered("HKCR\\CLSID\\{9AE6AD44-C589-4050-9359-78F603D30A08}"), R"(
HKEY_CLASSES_ROOT\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}
    (Default)    REG_SZ    qrtVistrelClasses4.FrameInfoClass
HKEY_CLASSES_ROOT\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}\InprocServer32
    (Default)    REG_SZ    )" + path_.string() + R"(
    ThreadingModel    REG_SZ    Apartment
HKEY_CLASSES_ROOT\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}\ProgID
    (Default)    REG_SZ    qrtVistrelClasses4.FrameInfoClass
HKEY_CLASSES_ROOT\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}\Programmable
    (Default)    REG_SZ
HKEY_CLASSES_ROOT\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}\TypeLib
    (Default)    REG_SZ    {2CED4AC9-38EF-44C1-B849-2452F0C70990}
HKEY_CLASSES_ROOT\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}\Version
    (Default)    REG_SZ    4.0
)");
    EXPECT_THAT(registered("HKCR\\qrtVistrelClasses4.SettingsInfoClass\\CLSID"),
                HasSubstr("REG_SZ    {BBB8EF58-3601-4A20-A2DC-0D4A387A04DF}"));
    EXPECT_THAT(registered("HKCR\\Interface\\{B9F001E0-54AE-41E1-9108-C0B9246D68B7}\\TypeLib"),
                HasSubstr("REG_SZ    {2CED4AC9-38EF-44C1-B849-2452F0C70990}"));
    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    EXPECT_TRUE(registered("HKCR") == before);
    EXPECT_EQ(run("DllUnregisterServer"), S_OK) << "nothing left to remove is no failure";
    ComPtr<IClassFactory> factory;
    ComPtr<IDispatch> playfile;
    ASSERT_EQ(getClassObject(CLSID_FrameInfoClass, IID_PPV_ARGS(&factory)), S_OK);
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&playfile)), S_OK);
    EXPECT_EQ(Call(playfile.Get(), "TotalFrames").value.iVal, 20) << "its type library is found all the same";
}

TEST_F(Server, StaysLoadedWhileItIsUsed) {
    EXPECT_EQ(run("DllCanUnloadNow"), S_OK);
    ComPtr<IClassFactory> factory;
    for (const BOOL lock : {TRUE, FALSE}) {
        ASSERT_EQ(getClassObject(CLSID_FrameInfoClass, IID_PPV_ARGS(&factory)), S_OK);
        EXPECT_EQ(run("DllCanUnloadNow"), S_FALSE) << "an object lives";
        factory->LockServer(lock);
        factory.Reset();
        EXPECT_EQ(run("DllCanUnloadNow"), lock ? S_FALSE : S_OK) << "a lock outlives who set it";
    }
}

TEST_F(Server, MakesNoOtherObjects) {
    void* object = this;
    EXPECT_EQ(getClassObject(IID__FrameInfoClass, IID_IUnknown, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(getClassObject(CLSID_FrameInfoClass, IID_IStream, &object), E_NOINTERFACE);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(getClassObject(CLSID_FrameInfoClass, IID_PPV_ARGS(&factory)), S_OK);
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
}

// run.sh gives it a process of its own: the system keeps class objects of an apartment that it made itself,
// and thus the server stays loaded.
TEST_F(Server, NeedsNoRegistrationBesideItsManifest) {
    ASSERT_EQ(run("DllUnregisterServer"), S_OK);
    CLSID id{};
    EXPECT_NE(CLSIDFromProgID(L"qrtVistrelClasses4.FrameInfoClass", &id), S_OK);
    const auto manifest = path_.replace_filename("qrtVistrelClasses4.Server.manifest");
    ACTCTXW assembly{};
    assembly.cbSize = sizeof assembly;
    assembly.lpSource = manifest.c_str();
    const HANDLE context = CreateActCtxW(&assembly);
    std::thread([context] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED); // calls then pass through proxies
        ULONG_PTR cookie = 0;
        EXPECT_TRUE(ActivateActCtx(context, &cookie));
        for (const wchar_t* name : {L"FrameInfoClass", L"SettingsInfoClass", L"DisplayDatabaseClass",
                                    L"MostRecentlyUsed", L"clsCommandInterface"}) {
            CLSID found{};
            EXPECT_EQ(CLSIDFromProgID((L"qrtVistrelClasses4." + std::wstring(name)).c_str(), &found), S_OK);
            EXPECT_NO_THROW(Create<IDispatch>(found));
        }
        short frames = 0;
        EXPECT_NO_THROW(Create<_FrameInfoClass>(CLSID_FrameInfoClass)->get_TotalFrames(&frames));
        EXPECT_EQ(frames, 20);
        DeactivateActCtx(0, cookie);
        CoUninitialize();
    }).join();
    ReleaseActCtx(context);
}

} // namespace
} // namespace qrtVistrelClasses4
