// The server as used by programs that were compiled with its type library.
#include "AutomationTesting.h"

#include <initguid.h>

#include <ocidl.h>
#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

OwnedBstr bstr(const std::wstring& text) {
    return OwnedBstr(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
}

/// The text that `get` returns.
template <class Get>
std::wstring textOf(Get get) {
    BSTR text = nullptr;
    EXPECT_EQ(get(&text), S_OK);
    return {text, SysStringLen(OwnedBstr(text).get())};
}

class Client : public AutomationTest {
protected:
    short totalFrames() {
        short frames = 0;
        EXPECT_EQ(playfile_->get_TotalFrames(&frames), S_OK);
        return frames;
    }

    ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<_DisplayDatabaseClass> signs_ = Create<_DisplayDatabaseClass>(CLSID_DisplayDatabaseClass);
    short first_ = 2, last_ = 1;
};

TEST_F(Client, MayPassVariablesThatTakeNoResult) {
    EXPECT_EQ(playfile_->InsertFrame(nullptr), S_OK) << "no need to know where the cursor is";
    EXPECT_EQ(totalFrames(), 21);
    EXPECT_EQ(playfile_->MoveFrame(&first_, nullptr), E_POINTER);
    EXPECT_EQ(playfile_->get_AudioFile(nullptr), E_POINTER);
    EXPECT_EQ(signs_->RetrieveAllDisplayInfoFromDisk(nullptr), S_OK);
    Value noText = Value::reference(&first_, VT_I2);
    EXPECT_EQ(signs_->RetrieveAllDisplayInfoFromDisk(&noText), S_OK);
    EXPECT_EQ(first_, 2) << "which cannot hold a name";
}

TEST_F(Client, SeesOneObjectThroughAllInterfaces) {
    ComPtr<IUnknown> unknown, again;
    ComPtr<IProvideClassInfo> provider;
    ASSERT_EQ(playfile_.As(&unknown), S_OK);
    ASSERT_EQ(playfile_.As(&provider), S_OK);
    ASSERT_EQ(provider.As(&again), S_OK);
    EXPECT_EQ(unknown.Get(), again.Get());
    ComPtr<IStream> stream;
    EXPECT_EQ(playfile_.As(&stream), E_NOINTERFACE);

    const auto nameOf = [](const ComPtr<ITypeInfo>& type) {
        return textOf([&](BSTR* name) {
            return type->GetDocumentation(MEMBERID_NIL, name, nullptr, nullptr, nullptr);
        });
    };
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(provider->GetClassInfo(&type), S_OK);
    EXPECT_EQ(nameOf(type), L"FrameInfoClass");
    ASSERT_EQ(playfile_->GetTypeInfo(0, LOCALE_NEUTRAL, &type), S_OK);
    EXPECT_EQ(nameOf(type), L"_FrameInfoClass");
    EXPECT_EQ(playfile_->GetTypeInfo(1, LOCALE_NEUTRAL, &type), DISP_E_BADINDEX);
}

TEST_F(Client, FindsASentenceAboutEveryTypeAndMember) {
    ComPtr<ITypeLib> library;
    ASSERT_EQ(LoadRegTypeLib(LIBID_qrtVistrelClasses4, 4, 0, LOCALE_NEUTRAL, &library), S_OK);
    std::size_t sentences = 0;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        ComPtr<ITypeInfo> type;
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(library->GetTypeInfo(index, &type), S_OK);
        ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
        std::vector<MEMBERID> members{MEMBERID_NIL};
        for (UINT number = 0; number < attributes->cFuncs; ++number) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(type->GetFuncDesc(number, &function), S_OK);
            if (function->oVft >= static_cast<SHORT>(7 * sizeof(void*))) // after those of IDispatch
                members.push_back(function->memid);
            type->ReleaseFuncDesc(function);
        }
        type->ReleaseTypeAttr(attributes);
        for (const MEMBERID member : members) {
            const std::wstring help = textOf(
                [&](BSTR* text) { return type->GetDocumentation(member, nullptr, text, nullptr, nullptr); });
            EXPECT_TRUE(help.ends_with(L'.')) << index << ' ' << member;
            ++sentences;
        }
    }
    EXPECT_GT(sentences, 200U);
}

TEST_F(Client, SavesPicturesThatTheSystemReads) {
    playfile_->put_DisplayWidth(3);
    playfile_->put_DisplayHeight(1);
    VARIANT_BOOL saved = VARIANT_FALSE;
    EXPECT_EQ(playfile_->SavePictureOfFrame(20, bstr(L"frame.bmp").get(), 2, &saved), S_OK);
    EXPECT_EQ(saved, VARIANT_TRUE);
    const HANDLE picture =
        LoadImageW(nullptr, L"frame.bmp", IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION);
    DIBSECTION shown{};
    ASSERT_NE(GetObjectW(picture, sizeof shown, &shown), 0);
    EXPECT_EQ(std::pair(shown.dsBm.bmWidth, shown.dsBm.bmHeight), std::pair(10L, 6L));
    const auto* const pixels = static_cast<const BYTE*>(shown.dsBm.bmBits);
    EXPECT_EQ(pixels[0], 72) << "the blue of the rim";
    EXPECT_EQ(pixels[2 * shown.dsBm.bmWidthBytes + 2 * 3], 38) << "and of a dark dot";
    DeleteObject(picture);
    DeleteFileW(L"frame.bmp");
}

TEST_F(Client, GetsResultCodesAndErrorInformation) {
    BSTR text = nullptr;
    ASSERT_EQ(playfile_->get_AudioFile(&text), static_cast<HRESULT>(0x800A0009));
    ComPtr<IErrorInfo> error;
    IID interfaceId{};
    ASSERT_EQ(GetErrorInfo(0, &error), S_OK);
    EXPECT_EQ(textOf([&](BSTR* result) { return error->GetDescription(result); }), L"Subscript out of range");
    EXPECT_EQ(textOf([&](BSTR* result) { return error->GetSource(result); }), L"qrtVistrelClasses4");
    error->GetGUID(&interfaceId);
    EXPECT_EQ(interfaceId, IID__FrameInfoClass);
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(playfile_.As(&support), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__FrameInfoClass), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__SettingsInfoClass), S_FALSE);

    const auto settings = Create<_SettingsInfoClass>(CLSID_SettingsInfoClass);
    EXPECT_EQ(settings->SaveSettingsToDisk(Value("Other.ini")), S_OK);
    EXPECT_EQ(settings->GetSettingsFromDisk(Value(settings.Get())), static_cast<HRESULT>(0x800A000D));
}

TEST_F(Client, GetsTextsUnchangedWhereTheCodePageHasThem) {
    playfile_->put_CurrentFrame(1);
    const std::vector<std::pair<std::wstring, std::wstring>> texts{
        {L"Caf\u00e9 \u20ac", L"Caf\u00e9 \u20ac"}, {{L"a\0b", 3}, {L"a\0b", 3}}, {L"\u6f22", L"?"}, {}};
    for (const auto& [put, got] : texts) {
        EXPECT_EQ(playfile_->put_FrameName(put.empty() ? nullptr : bstr(put).get()), S_OK);
        EXPECT_EQ(textOf([&](BSTR* name) { return playfile_->get_FrameName(name); }), got);
    }
}

TEST_F(Client, GetsTheBytesOfCommandsOneToOne) {
    const auto commands = Create<_clsCommandInterface>(CLSID_clsCommandInterface);
    std::wstring all;
    for (wchar_t byte = 0; byte < 256; ++byte)
        all += byte;
    const auto bytesOf = [&](const std::wstring& key) {
        return textOf([&](BSTR* bytes) { return commands->get_sCommandBytesByKey(bstr(key).get(), bytes); });
    };
    EXPECT_EQ(commands->put_sCommandBytesByKey(bstr(L"all").get(), bstr(all).get()), S_OK);
    EXPECT_EQ(bytesOf(L"all"), all);
    EXPECT_EQ(bytesOf(L"\u0100"), L"\u0100") << "unknown, and no byte";
    EXPECT_EQ(commands->put_sCommandBytesByKey(bstr(L"\u0100").get(), bstr(L"x").get()),
              static_cast<HRESULT>(0x800A0005));
}

TEST_F(Client, OwnsTheClipboardAndKnowsWhenItIsReplaced) {
    const auto references = [](_FrameInfoClass* object) {
        object->AddRef();
        return object->Release();
    };
    _FrameInfoClass* clipboard = nullptr;
    ASSERT_EQ(playfile_->CopyInfo(&first_, &last_, &clipboard), S_OK);
    const ComPtr<_FrameInfoClass> previous = clipboard;
    ASSERT_EQ(playfile_->CutInfo(&first_, &last_, &clipboard), S_OK);
    EXPECT_NE(clipboard, previous.Get());
    EXPECT_EQ(references(previous.Get()), 1U) << "the variable holds it no longer";
    EXPECT_EQ(playfile_->PasteInfo(19, clipboard), S_OK);
    EXPECT_EQ(totalFrames(), 20);
    EXPECT_EQ(references(clipboard), 1U);

    _FrameInfoClass* itself = playfile_.Detach();
    ASSERT_EQ(itself->CopyInfo(&first_, &last_, &itself), S_OK) << "the call releases the last reference";
    playfile_.Attach(itself);
    EXPECT_EQ(totalFrames(), 2);
    clipboard->Release();
}

} // namespace
} // namespace qrtVistrelClasses4
