// List boxes of a host, and the members that fill them. What the lists hold is tested with the library.
#include "AutomationTesting.h"
#include "automation/HostListControl.h"
#include "settings/AppFolder.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <qrtVistrelClasses4.h>

#include <cstdio>
#include <fstream>
#include <functional>

namespace qrtVistrelClasses4 {
namespace {

/// A list box that notes how it is used.
class FakeListControl : public FakeHostObject {
public:
    std::vector<std::string> calls; ///< Kinds and names of the members, and their arguments.
    HRESULT refusal = S_OK;         ///< What members answer.
    EXCEPINFO exception{};          ///< The description of the next error.
    std::function<void()> act;      ///< What the host does in each call.

    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS* passed, VARIANT* result,
                        EXCEPINFO* described, UINT*) override {
        const bool puts = passed->cNamedArgs == 1 && *passed->rgdispidNamedArgs == DISPID_PROPERTYPUT;
        calls.push_back((flags == DISPATCH_METHOD                  ? "call "
                         : (flags & DISPATCH_PROPERTYGET)          ? "get "
                         : (flags == DISPATCH_PROPERTYPUT && puts) ? "put "
                                                                   : "wrongly use ") +
                        member_);
        for (UINT i = passed->cArgs; i-- > 0;) {
            OwnedVariant text;
            VariantChangeType(&text, &passed->rgvarg[i], 0, VT_BSTR);
            calls.back() += " " + NarrowText(V_BSTR(&text));
        }
        if (result) { // numbers of list boxes have 16 bits
            V_VT(result) = VT_I2;
            V_I2(result) = 5;
        }
        *described = std::exchange(exception, {});
        if (act)
            act();
        return refusal;
    }
};

class ListControlOfHost : public AutomationTest {
protected:
    /// Number and description of the error that `control` answers.
    static std::pair<int, std::string> errorOf(IDispatch* control) {
        try {
            HostListControl(control).Clear();
            return {};
        } catch (const RuntimeError& error) {
            return {error.number(), error.description()};
        }
    }
    std::pair<std::string, std::string> lastCalls() {
        return {prefixes_->calls.back(), suffixes_->calls.back()};
    }

    const ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<FakeListControl> prefixes_ = MakeObject<FakeListControl>();
    ComPtr<FakeListControl> suffixes_ = MakeObject<FakeListControl>();
};

TEST_F(ListControlOfHost, HasTheMembersOfAListBox) {
    HostListControl list(prefixes_.Get());
    EXPECT_EQ(list.ClassName(), "Object");
    EXPECT_EQ(HostListControl(playfile_.Get()).ClassName(), "FrameInfoClass") << "its class, if it is known";
    list.Clear();
    list.AddItem("Wipe On");
    list.ItemData(list.NewIndex(), 2000);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListCount(), 5);
    EXPECT_EQ(prefixes_->calls,
              (std::vector<std::string>{"call Clear", "call AddItem Wipe On", "get NewIndex",
                                        "put ItemData 5 2000", "call RemoveItem 0", "get ListCount"}));
}

TEST_F(ListControlOfHost, ThrowsItsErrors) {
    constexpr auto kOutOfMemory = static_cast<SCODE>(0x800A0007);
    const struct {
        const char* why;
        HRESULT refusal;
        WORD code;
        SCODE longCode;
        const char* description;
        std::pair<int, std::string> wanted;
    } cases[] = {
        {"a run-time error", DISP_E_EXCEPTION, 0, kOutOfMemory, "No memory", {7, "No memory"}},
        {"a code of the control's own", DISP_E_EXCEPTION, 381, 0, "Invalid index", {381, "Invalid index"}},
        {"no description", DISP_E_EXCEPTION, 0, E_FAIL, "", {440, "Automation error"}},
        {"a wrong type", DISP_E_TYPEMISMATCH, 0, 0, "", {13, "Type mismatch"}},
        {"a disconnected object", RPC_E_DISCONNECTED, 0, 0, "", {440, "Automation error"}},
    };
    for (const auto& c : cases) {
        prefixes_->refusal = c.refusal;
        prefixes_->exception.wCode = c.code;
        prefixes_->exception.scode = c.longCode;
        prefixes_->exception.bstrDescription = WideText(c.description).release();
        EXPECT_EQ(errorOf(prefixes_.Get()), c.wanted) << c.why;
    }
    EXPECT_EQ(errorOf(playfile_.Get()).first, 438) << "no list box at all";
}

TEST_F(ListControlOfHost, MayBeMissing) {
    Value empty;
    for (const Value& nothing :
         {Value(static_cast<IDispatch*>(nullptr)), Value(), Value::omitted(), Value::reference(&empty)}) {
        suffixes_->calls.clear();
        EXPECT_EQ(Call(playfile_.Get(), "FillEffectList", {nothing, suffixes_.Get()}).code, S_OK);
        EXPECT_FALSE(suffixes_->calls.empty()) << V_VT(&nothing);
    }
    EXPECT_EQ(Call(playfile_.Get(), "FillEffectList", {"text", suffixes_.Get()}).code, DISP_E_TYPEMISMATCH);
}

TEST_F(ListControlOfHost, MayReleaseTheObjectThatFillsIt) {
    _FrameInfoClass* const object = Create<_FrameInfoClass>(CLSID_FrameInfoClass).Detach();
    ULONG users = 0;
    prefixes_->act = [&] {
        if (users == 0)
            users = object->Release();
    };
    EXPECT_EQ(object->FillEffectList(prefixes_.Get(), suffixes_.Get()), S_OK);
    EXPECT_EQ(users, 1U) << "until the member returns";
    EXPECT_FALSE(suffixes_->calls.empty());
}

// The last one here: from then on the process offers the optional effects.
TEST_F(ListControlOfHost, IsFilledWithEffects) {
    const std::pair<std::string, std::string> loopsLast{"put ItemData 5 20000", "put ItemData 5 20001"};
    const std::pair<std::string, std::string> loopsRemoved{"call RemoveItem 4", "call RemoveItem 4"};
    ASSERT_EQ(playfile_->FillEffectList(prefixes_.Get(), suffixes_.Get()), S_OK);
    EXPECT_EQ(prefixes_->calls[1], "call AddItem No Effects");
    EXPECT_EQ(lastCalls(), loopsLast);
    ASSERT_EQ(playfile_->RefreshEffectLists(prefixes_.Get(), suffixes_.Get()), S_OK);
    EXPECT_EQ(lastCalls(), loopsRemoved);

    const std::string file = GetAppFolder() + "NewEffects.ini";
    const auto prefixes = prefixes_, suffixes = suffixes_; // of the editor; those of dialogs have no loops
    prefixes_ = MakeObject<FakeListControl>();
    suffixes_ = MakeObject<FakeListControl>();
    std::ofstream(file) << "[Effects]\nDROP=false\n";
    VARIANT_BOOL loaded = VARIANT_FALSE;
    playfile_->LoadNewEffectLists(prefixes.Get(), suffixes.Get(), prefixes_.Get(), suffixes_.Get(), &loaded);
    std::remove(file.c_str());
    EXPECT_EQ(loaded, VARIANT_TRUE);
    EXPECT_EQ(lastCalls(), loopsRemoved);
    EXPECT_EQ(std::pair(prefixes->calls.back(), suffixes->calls.back()), loopsLast);
}

} // namespace
} // namespace qrtVistrelClasses4
