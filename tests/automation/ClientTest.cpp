// The server as programs use it; scripts have tests of their own.
#include "AutomationTesting.h"

#include <initguid.h>

#include <ocidl.h>
#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

OwnedBstr bstr(const std::wstring& text) {
    return OwnedBstr(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
}

class Client : public AutomationTest {
protected:
    ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<_SettingsInfoClass> settings_ = Create<_SettingsInfoClass>(CLSID_SettingsInfoClass);
};

TEST_F(Client, SeesOneIdentityBehindAllInterfaces) {
    ComPtr<IUnknown> unknown, again;
    ComPtr<ISupportErrorInfo> other;
    ASSERT_EQ(playfile_.As(&unknown), S_OK);
    ASSERT_EQ(playfile_.As(&other), S_OK);
    ASSERT_EQ(other.As(&again), S_OK);
    EXPECT_EQ(unknown.Get(), again.Get());
    ComPtr<IStream> stream;
    EXPECT_EQ(playfile_.As(&stream), E_NOINTERFACE);
    EXPECT_EQ(
        CoCreateInstance(CLSID_FrameInfoClass, playfile_.Get(), CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&unknown)),
        CLASS_E_NOAGGREGATION);
}

TEST_F(Client, LearnsTheClassAndInterfaceOfAnObject) {
    const auto nameOf = [](const ComPtr<ITypeInfo>& type) {
        BSTR name = nullptr;
        type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
        return NarrowText(OwnedBstr(name).get());
    };
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(settings_.As(&provider), S_OK);
    ASSERT_EQ(provider->GetClassInfo(&type), S_OK);
    EXPECT_EQ(nameOf(type), "SettingsInfoClass");
    ASSERT_EQ(settings_->GetTypeInfo(0, LOCALE_NEUTRAL, &type), S_OK);
    EXPECT_EQ(nameOf(type), "_SettingsInfoClass");
    EXPECT_EQ(settings_->GetTypeInfo(1, LOCALE_NEUTRAL, &type), DISP_E_BADINDEX);
}

TEST_F(Client, GetsResultCodesAndErrorInformation) {
    BSTR text = nullptr;
    ASSERT_EQ(playfile_->get_AudioFile(&text), static_cast<HRESULT>(0x800A0009));
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, &error), S_OK);
    error->GetDescription(&text);
    EXPECT_EQ(NarrowText(OwnedBstr(text).get()), "Subscript out of range");
    error->GetSource(&text);
    EXPECT_EQ(NarrowText(OwnedBstr(text).get()), "qrtVistrelClasses4");
    IID interfaceId{};
    error->GetGUID(&interfaceId);
    EXPECT_EQ(interfaceId, IID__FrameInfoClass);

    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(playfile_.As(&support), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__FrameInfoClass), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__SettingsInfoClass), S_FALSE);
    EXPECT_EQ(playfile_->get_AudioFile(nullptr), E_POINTER);
}

TEST_F(Client, GetsTextsUnchanged) {
    playfile_->put_CurrentFrame(1);
    const auto returned = [&](const std::wstring& text) {
        BSTR result = nullptr;
        EXPECT_EQ(playfile_->put_FrameName(bstr(text).get()), S_OK);
        EXPECT_EQ(playfile_->get_FrameName(&result), S_OK);
        const OwnedBstr owned(result);
        return std::wstring(result, SysStringLen(result));
    };
    for (const std::wstring& text : {std::wstring(L"Caf\u00e9 \u20ac"), std::wstring(L"a\0b", 3)})
        EXPECT_EQ(returned(text), text);
    EXPECT_EQ(returned(L"\u6f22"), L"?") << "the code page lacks it";
    EXPECT_EQ(playfile_->put_FrameName(nullptr), S_OK) << "no text at all is an empty one";
}

TEST_F(Client, GetsTheBytesOfCommandsOneToOne) {
    const auto commands = Create<_clsCommandInterface>(CLSID_clsCommandInterface);
    std::wstring all(256, L' ');
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = static_cast<wchar_t>(i);
    const auto bytesOf = [&](const std::wstring& key) {
        BSTR bytes = nullptr;
        EXPECT_EQ(commands->get_sCommandBytesByKey(bstr(key).get(), &bytes), S_OK);
        const OwnedBstr owned(bytes);
        return std::wstring(bytes, SysStringLen(bytes));
    };
    EXPECT_EQ(commands->put_sCommandBytesByKey(bstr(L"all").get(), bstr(all).get()), S_OK);
    EXPECT_EQ(bytesOf(L"all"), all);
    EXPECT_EQ(bytesOf(L"\u6f22"), L"\u6f22") << "unknown, and no byte";
    EXPECT_EQ(commands->put_sCommandBytesByKey(bstr(L"\u6f22").get(), bstr(L"x").get()),
              static_cast<HRESULT>(0x800A0005));
}

TEST_F(Client, MayCallAMethodBySettingItsName) {
    EXPECT_EQ(SetProperty(playfile_.Get(), L"SetSuppressMessages", true), S_OK);
    EXPECT_EQ(SetProperty(playfile_.Get(), L"SetSuppressMessages", "perhaps"), DISP_E_TYPEMISMATCH);
    EXPECT_TRUE(FAILED(SetProperty(playfile_.Get(), L"MakeLineVarsValid", true))) << "no argument to set";
    EXPECT_TRUE(FAILED(SetProperty(playfile_.Get(), L"IsLegacy", true))) << "read-only";
}

TEST_F(Client, MayNameArguments) {
    settings_->WriteSetting(WideText("Named").get(), WideText("kept").get());
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"GetPrivateSetting"), const_cast<LPOLESTR>(L"DefaultValue"),
                        const_cast<LPOLESTR>(L"Key")};
    DISPID ids[3] = {};
    ASSERT_EQ(settings_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_NEUTRAL, ids), S_OK);
    Value arguments[] = {"missing", "Named"};
    DISPPARAMS passed{arguments, &ids[1], 2, 2};
    Value result;
    EXPECT_EQ(settings_->Invoke(ids[0], IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &passed, &result, nullptr,
                                nullptr),
              S_OK);
    EXPECT_EQ(result.text(), "kept");
}

TEST_F(Client, MayOmitTheFileOfTheSettings) {
    const struct {
        const char* why;
        std::vector<Value> arguments;
        HRESULT wanted;
    } cases[] = {
        {"left out", {}, S_OK},
        {"left out with a comma", {Value::omitted()}, S_OK},
        {"a text", {"Other.ini"}, S_OK},
        {"an object", {settings_.Get()}, DISP_E_EXCEPTION},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Call(settings_.Get(), L"SaveSettingsToDisk", c.arguments).code, c.wanted);
        EXPECT_EQ(Call(settings_.Get(), L"GetSettingsFromDisk", c.arguments).code, c.wanted);
    }
}

TEST_F(Client, MayOmitWhetherTheCursorIsOnTheLastFrame) {
    playfile_->put_CurrentFrame(1);
    EXPECT_EQ(playfile_->InsertFrame(nullptr), S_OK);
    EXPECT_EQ(Call(playfile_.Get(), L"InsertFrame").code, S_OK);
    EXPECT_EQ(Call(playfile_.Get(), L"InsertFrame", {Value::omitted()}).code, S_OK);
    short frames = 0;
    playfile_->get_TotalFrames(&frames);
    EXPECT_EQ(frames, 23);
}

TEST_F(Client, GetsTheFullNameInAnyVariableForATextAndInNoOther) {
    const auto signs = Create<_DisplayDatabaseClass>(CLSID_DisplayDatabaseClass);
    BSTR text = WideText("Client.dat").release();
    Value variant("Client.dat");
    Value references[] = {Value::reference(&text, VT_BSTR), Value::reference(&variant)};
    for (Value& reference : references)
        EXPECT_EQ(signs->WriteAllDisplaysToDisk(&reference), S_OK);
    const OwnedBstr full(text);
    EXPECT_EQ(variant.text(), NarrowText(text));
    EXPECT_GT(variant.text().size(), std::string("Client.dat").size());
    short number = 7;
    Value other = Value::reference(&number, VT_I2);
    EXPECT_EQ(signs->RetrieveAllDisplayInfoFromDisk(&other), S_OK);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(signs->RetrieveAllDisplayInfoFromDisk(nullptr), S_OK);
}

TEST_F(Client, OwnsTheClipboardAndKnowsWhenItIsReplaced) {
    const auto references = [](_FrameInfoClass* object) {
        object->AddRef();
        return object->Release();
    };
    short first = 2, last = 1, frames = 0;
    _FrameInfoClass* clipboard = nullptr;
    ASSERT_EQ(playfile_->CopyInfo(&first, &last, &clipboard), S_OK);
    EXPECT_EQ(references(clipboard), 1U);
    const ComPtr<_FrameInfoClass> previous = clipboard;
    ASSERT_EQ(playfile_->CutInfo(&first, &last, &clipboard), S_OK);
    EXPECT_NE(clipboard, previous.Get());
    EXPECT_EQ(references(previous.Get()), 1U) << "the variable has let go of it";
    EXPECT_EQ(playfile_->PasteInfo(19, clipboard), S_OK);
    playfile_->get_TotalFrames(&frames);
    EXPECT_EQ(frames, 20);
    EXPECT_EQ(references(clipboard), 1U);

    _FrameInfoClass* itself = playfile_.Detach();
    ASSERT_EQ(itself->CopyInfo(&first, &last, &itself), S_OK) << "the last reference goes during the call";
    itself->get_TotalFrames(&frames);
    EXPECT_EQ(frames, 2);
    itself->Release();
    clipboard->Release();
}

} // namespace
} // namespace qrtVistrelClasses4
