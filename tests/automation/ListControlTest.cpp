// List boxes of a host, and the members that fill them. What the lists offer is tested with the library.
#include "AutomationTesting.h"
#include "automation/HostListControl.h"
#include "frame/RuntimeError.h"
#include "settings/AppFolder.h"

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
    EXCEPINFO exception{};          ///< What they tell of an error; handed on once.
    std::function<void()> act;      ///< What the host does meanwhile.

    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS* passed, VARIANT* result,
                        EXCEPINFO* told, UINT*) override {
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
        *told = std::exchange(exception, {});
        if (act)
            act();
        return refusal;
    }
};

class ListControlOfHost : public AutomationTest {
protected:
    /// What comes of an error of `control`.
    static std::pair<int, std::string> errorOf(IDispatch* control) {
        try {
            HostListControl(control).Clear();
            return {};
        } catch (const RuntimeError& error) {
            return {error.number(), error.description()};
        }
    }
    void expectLast(const std::string& prefixCall, const std::string& suffixCall) {
        EXPECT_EQ(prefixes_->calls.back(), prefixCall);
        EXPECT_EQ(suffixes_->calls.back(), suffixCall);
    }

    const ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<FakeListControl> prefixes_ = MakeObject<FakeListControl>();
    ComPtr<FakeListControl> suffixes_ = MakeObject<FakeListControl>();
};

TEST_F(ListControlOfHost, HasTheMembersOfAListBox) {
    HostListControl list(prefixes_.Get());
    EXPECT_EQ(list.ClassName(), "Object");
    EXPECT_EQ(HostListControl(playfile_.Get()).ClassName(), "FrameInfoClass") << "where it tells";
    list.Clear();
    list.AddItem("Wipe On");
    list.ItemData(list.NewIndex(), 2000);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListCount(), 5);
    EXPECT_EQ(prefixes_->calls,
              (std::vector<std::string>{"call Clear", "call AddItem Wipe On", "get NewIndex",
                                        "put ItemData 5 2000", "call RemoveItem 0", "get ListCount"}));
}

TEST_F(ListControlOfHost, TellsItsErrors) {
    const struct {
        const char* why;
        HRESULT refusal;
        WORD code;
        SCODE longCode;
        const char* description;
        std::pair<int, std::string> wanted;
    } cases[] = {
        {"a run-time error",
         DISP_E_EXCEPTION,
         0,
         static_cast<SCODE>(0x800A0007),
         "No memory",
         {7, "No memory"}},
        {"a code of the control's own", DISP_E_EXCEPTION, 381, 0, "Invalid index", {381, "Invalid index"}},
        {"no run-time error", DISP_E_EXCEPTION, 0, E_FAIL, "Gone", {440, "Gone"}},
        {"nothing told", DISP_E_EXCEPTION, 0, E_FAIL, "", {440, "Automation error"}},
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

TEST_F(ListControlOfHost, MayLetGoOfTheObjectThatFillsIt) {
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
    const std::string file = GetAppFolder() + "NewEffects.ini";
    const std::string startLoop = "put ItemData 5 20000", endLoop = "put ItemData 5 20001";
    const std::string loopRemoved = "call RemoveItem 4"; // dialogs have none
    const auto prefixes2 = MakeObject<FakeListControl>(), suffixes2 = MakeObject<FakeListControl>();
    VARIANT_BOOL loaded = VARIANT_TRUE;
    const auto load = [&] {
        playfile_->LoadNewEffectLists(prefixes_.Get(), suffixes_.Get(), prefixes2.Get(), suffixes2.Get(),
                                      &loaded);
        return loaded;
    };
    EXPECT_EQ(load(), VARIANT_FALSE) << "no file, no optional effects";
    ASSERT_EQ(playfile_->FillEffectList(prefixes_.Get(), suffixes_.Get()), S_OK);
    EXPECT_EQ(prefixes_->calls[1], "call AddItem No Effects");
    expectLast(startLoop, endLoop);
    ASSERT_EQ(playfile_->RefreshEffectLists(prefixes_.Get(), suffixes_.Get()), S_OK);
    expectLast(loopRemoved, loopRemoved);

    std::ofstream(file) << "[Effects]\nDROP=false\n";
    EXPECT_EQ(load(), VARIANT_TRUE);
    std::remove(file.c_str());
    expectLast(startLoop, endLoop);
    EXPECT_EQ(prefixes2->calls.back(), loopRemoved);
    EXPECT_EQ(suffixes2->calls.back(), loopRemoved);
}

} // namespace
} // namespace qrtVistrelClasses4
