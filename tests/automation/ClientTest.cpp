// The server as programs and scripts use it.
#include "AutomationTesting.h"

#include <initguid.h>

#include <CallTest.h>
#include <ocidl.h>
#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

constexpr HRESULT kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);

class Client : public AutomationTest {
protected:
    ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<_SettingsInfoClass> settings_ = Create<_SettingsInfoClass>(CLSID_SettingsInfoClass);
};

TEST_F(Client, CreatesObjectsByProgramName) {
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(L"qrtVistrelClasses4.FrameInfoClass", &id), S_OK);
    EXPECT_EQ(id, CLSID_FrameInfoClass);
    ASSERT_EQ(CLSIDFromProgID(L"qrtVistrelClasses4.SettingsInfoClass", &id), S_OK);
    EXPECT_EQ(id, CLSID_SettingsInfoClass);
}

TEST_F(Client, IsRefusedAggregation) {
    void* object = nullptr;
    EXPECT_EQ(
        CoCreateInstance(CLSID_FrameInfoClass, playfile_.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &object),
        CLASS_E_NOAGGREGATION);
}

TEST_F(Client, SeesOneIdentityBehindAllInterfaces) {
    ComPtr<IUnknown> unknown, again;
    ComPtr<ISupportErrorInfo> other;
    ASSERT_EQ(playfile_.As(&unknown), S_OK);
    ASSERT_EQ(playfile_.As(&other), S_OK);
    ASSERT_EQ(other.As(&again), S_OK);
    EXPECT_EQ(unknown.Get(), again.Get());
    ComPtr<IStream> stream;
    EXPECT_EQ(playfile_.As(&stream), E_NOINTERFACE);
}

TEST_F(Client, LearnsTheClassAndInterfaceOfAnObject) {
    const auto nameOf = [](ITypeInfo& type) {
        BSTR name = nullptr;
        type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
        return NarrowText(OwnedBstr(name).get());
    };
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(settings_.As(&provider), S_OK);
    ASSERT_EQ(provider->GetClassInfo(&type), S_OK);
    EXPECT_EQ(nameOf(*type.Get()), "SettingsInfoClass");
    ASSERT_EQ(settings_->GetTypeInfo(0, LOCALE_NEUTRAL, &type), S_OK);
    EXPECT_EQ(nameOf(*type.Get()), "_SettingsInfoClass");
    EXPECT_EQ(settings_->GetTypeInfo(1, LOCALE_NEUTRAL, &type), DISP_E_BADINDEX);
}

TEST_F(Client, GetsResultCodesAndErrorInformation) {
    BSTR text = nullptr;
    ASSERT_EQ(playfile_->get_AudioFile(&text), kSubscriptOutOfRange);
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, &error), S_OK);
    BSTR description = nullptr;
    BSTR source = nullptr;
    IID interfaceId{};
    error->GetDescription(&description);
    error->GetSource(&source);
    error->GetGUID(&interfaceId);
    EXPECT_EQ(NarrowText(OwnedBstr(description).get()), "Subscript out of range");
    EXPECT_EQ(NarrowText(OwnedBstr(source).get()), "qrtVistrelClasses4");
    EXPECT_EQ(interfaceId, IID__FrameInfoClass);

    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(playfile_.As(&support), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__FrameInfoClass), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__SettingsInfoClass), S_FALSE);
    EXPECT_EQ(playfile_->get_AudioFile(nullptr), E_POINTER);
}

TEST_F(Client, GetsTextsUnchanged) {
    playfile_->put_CurrentFrame(1);
    struct Case {
        const char* why;
        std::wstring given, wanted;
    };
    const Case cases[] = {
        {"empty", L"", L""},
        {"characters above 127", L"Caf\u00e9 \u20ac", L"Caf\u00e9 \u20ac"},
        {"a character of code 0", std::wstring(L"a\0b", 3), std::wstring(L"a\0b", 3)},
        {"a character that the code page lacks", L"\u6f22", L"?"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const OwnedBstr given(SysAllocStringLen(c.given.data(), static_cast<UINT>(c.given.size())));
        ASSERT_EQ(playfile_->put_FrameName(given.get()), S_OK);
        BSTR result = nullptr;
        ASSERT_EQ(playfile_->get_FrameName(&result), S_OK);
        EXPECT_EQ(std::wstring(result, SysStringLen(result)), c.wanted);
        SysFreeString(result);
    }
    EXPECT_EQ(playfile_->put_FrameName(nullptr), S_OK) << "no text at all is an empty one";
}

TEST_F(Client, GetsEveryValueInItsOwnType) {
    struct Case {
        IDispatch* object;
        const wchar_t* name;
        VARTYPE wanted;
    };
    IDispatch* const playfile = playfile_.Get();
    IDispatch* const settings = settings_.Get();
    playfile_->put_CurrentFrame(1);
    const Case cases[] = {
        {playfile, L"ClassDebugID", VT_I4},   {settings, L"ClassDebugID", VT_I4},
        {playfile, L"CurrentFrame", VT_I2},   {playfile, L"FrameName", VT_BSTR},
        {playfile, L"FrameType", VT_I4},      {playfile, L"DelayTime", VT_R8},
        {playfile, L"OverlayFrame", VT_BOOL}, {playfile, L"SendCommandFileAsIs", VT_I2},
        {playfile, L"WinBackColor", VT_I4},   {playfile, L"FixedNumberOfLines", VT_I2},
        {settings, L"DelayMaximum", VT_R8},
    };
    for (const Case& c : cases)
        EXPECT_EQ(GetProperty(*c.object, c.name).value.vt, c.wanted)
            << NarrowText(OwnedBstr(SysAllocString(c.name)).get());
}

TEST_F(Client, HasItsValuesConverted) {
    struct Case {
        const char* why;
        Value given;
        HRESULT wantedCode;
        short wanted;
    };
    Value variable = 7;
    LONG typedVariable = 8;
    const Case cases[] = {
        {"a number", 3, S_OK, 3},
        {"a text that holds a number", "12", S_OK, 12},
        {"a half rounds to the even number", 2.5, S_OK, 2},
        {"true has all bits set", true, S_OK, -1},
        {"a value not set", Value(), S_OK, 0},
        {"a variable of a script", Value::referenceTo(variable), S_OK, 7},
        {"a variable with a type", Value::reference(VT_I4, &typedVariable), S_OK, 8},
        {"beyond 16 bits", 70000, DISP_E_OVERFLOW, 99},
        {"no number", "abc", DISP_E_TYPEMISMATCH, 99},
        {"an object", playfile_.Get(), DISP_E_TYPEMISMATCH, 99},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        playfile_->put_CurrentFrame(99);
        EXPECT_EQ(SetProperty(*playfile_.Get(), L"CurrentFrame", c.given), c.wantedCode);
        EXPECT_EQ(GetProperty(*playfile_.Get(), L"CurrentFrame").value.iVal, c.wanted);
    }
}

TEST_F(Client, MayCallAMethodBySettingItsName) {
    EXPECT_EQ(SetProperty(*playfile_.Get(), L"SetSuppressMessages", true), S_OK);
    EXPECT_EQ(SetProperty(*playfile_.Get(), L"SetSuppressMessages", "perhaps"), DISP_E_TYPEMISMATCH);
    EXPECT_TRUE(FAILED(SetProperty(*playfile_.Get(), L"MakeLineVarsValid", true))) << "no argument to set";
    EXPECT_TRUE(FAILED(SetProperty(*playfile_.Get(), L"IsLegacy", true))) << "read-only";
}

TEST_F(Client, IsToldOfMissingMembersAndArguments) {
    EXPECT_EQ(CallMethod(*playfile_.Get(), L"InitFram", {1}).code, DISP_E_UNKNOWNNAME);
    EXPECT_TRUE(FAILED(CallMethod(*playfile_.Get(), L"InitFrame").code));
}

TEST_F(Client, MayNameArguments) {
    settings_->WriteSetting(WideText("Named").get(), WideText("kept").get());
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"GetPrivateSetting"), const_cast<LPOLESTR>(L"DefaultValue"),
                        const_cast<LPOLESTR>(L"Key")};
    DISPID ids[3] = {};
    ASSERT_EQ(settings_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_NEUTRAL, ids), S_OK);
    const Value defaultValue = "missing";
    const Value key = "Named";
    VARIANT arguments[] = {defaultValue, key};
    DISPPARAMS passed{arguments, &ids[1], 2, 2};
    Value result;
    ASSERT_EQ(settings_->Invoke(ids[0], IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &passed, &result, nullptr,
                                nullptr),
              S_OK);
    EXPECT_EQ(result.text(), "kept");
}

TEST_F(Client, MayOmitTheFileOfTheSettings) {
    struct Case {
        const char* why;
        std::vector<Value> arguments;
        HRESULT wanted;
    };
    const Case cases[] = {
        {"left out", {}, S_OK},
        {"left out with a comma", {Value::omitted()}, S_OK},
        {"a text", {"Other.ini"}, S_OK},
        {"an object", {settings_.Get()}, DISP_E_EXCEPTION},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CallMethod(*settings_.Get(), L"SaveSettingsToDisk", c.arguments).code, c.wanted);
        EXPECT_EQ(CallMethod(*settings_.Get(), L"GetSettingsFromDisk", c.arguments).code, c.wanted);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
