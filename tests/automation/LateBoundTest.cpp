// The server as used by scripts, but with more kinds of arguments.
#include "AutomationTesting.h"

#include <qrtVistrelClasses4.h>

#include <atomic>
#include <thread>

namespace qrtVistrelClasses4 {
namespace {

class LateBound : public AutomationTest {
protected:
    const ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    const ComPtr<_DisplayDatabaseClass> signs_ = Create<_DisplayDatabaseClass>(CLSID_DisplayDatabaseClass);
    const ComPtr<_SettingsInfoClass> settings_ = Create<_SettingsInfoClass>(CLSID_SettingsInfoClass);
    const Value noObject_{static_cast<IDispatch*>(nullptr)};
};

/// Numbers and flags as text; whether there is an object; a full name without its folder.
std::string shown(Value value) {
    if (V_VT(&value) == VT_DISPATCH)
        return V_DISPATCH(&value) ? "object" : "none";
    VariantChangeType(&value, &value, VARIANT_ALPHABOOL, VT_BSTR);
    const std::string text = NarrowText(V_BSTR(&value));
    const std::size_t name = text.rfind('\\');
    return name == text.npos ? text : text.substr(name);
}

TEST_F(LateBound, SetsEveryKindOfVariable) {
    enum Kind { missing, plain, inVariant, typed };
    enum WhenMissing { refused, taken, boxOpens };
    const struct {
        const char* member;
        std::vector<Value> arguments;
        std::size_t number; ///< Of the argument that is tried.
        VARTYPE type;
        const char* after;
        WhenMissing whenMissing = refused;
    } cases[] = {
        {"InsertFrame", {false}, 0, VT_BOOL, "True", taken},
        {"MoveFrame", {3, 1}, 0, VT_I2, "3"},
        {"MoveFrame", {3, 1}, 1, VT_I2, "1"},
        {"CopyInfo", {3, 1, noObject_}, 0, VT_I2, "1"},
        {"CopyInfo", {3, 1, noObject_}, 1, VT_I2, "3"},
        {"CopyInfo", {3, 1, noObject_}, 2, VT_DISPATCH, "object", taken},
        {"CutInfo", {3, 1, noObject_}, 0, VT_I2, "1"},
        {"CutInfo", {3, 1, noObject_}, 1, VT_I2, "3"},
        {"CutInfo", {3, 1, noObject_}, 2, VT_DISPATCH, "object", taken},
        {"WriteAllDisplaysToDisk", {"Late.dat"}, 0, VT_BSTR, "\\Late.dat", boxOpens},
        {"RetrieveAllDisplayInfoFromDisk", {"Late.dat"}, 0, VT_BSTR, "\\Late.dat", taken},
        {"ValidateThisPlayfile",
         {"?"},
         0,
         VT_BSTR,
         "error playfile: All 20 frames are blank. [no-used-frame]",
         taken},
    };
    for (const auto& c : cases)
        for (const Kind kind : {missing, plain, inVariant, typed}) {
            SCOPED_TRACE(testing::Message() << c.member << " " << c.number << " " << kind);
            if (kind == missing && c.whenMissing == boxOpens)
                continue;
            const auto playfile = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
            playfile->put_CurrentFrame(20);
            Value variable = c.arguments[c.number];
            VariantChangeType(&variable, &variable, 0, c.type);
            std::vector<Value> arguments = c.arguments;
            arguments[c.number] = kind == missing     ? Value::omitted()
                                  : kind == plain     ? variable
                                  : kind == inVariant ? Value::reference(&variable)
                                                      : Value::reference(&V_I4(&variable), c.type);
            IDispatch* const signs = signs_.Get();
            const HRESULT code = Call(std::string_view(c.member).ends_with("Disk") ? signs : playfile.Get(),
                                      c.member, arguments)
                                     .code;
            EXPECT_EQ(SUCCEEDED(code), kind != missing || c.whenMissing == taken);
            EXPECT_TRUE(kind < inVariant || shown(variable) == c.after) << shown(variable);
        }
}

TEST_F(LateBound, ConvertsArgumentsToTheTypesOfTheMemberAndBack) {
    LONG first = 7;
    Value last = 2.5, clipboard = playfile_.Get();
    EXPECT_EQ(Call(playfile_.Get(), "CopyInfo",
                   {Value::reference(&first, VT_I4), Value::reference(&last), Value::reference(&clipboard)})
                  .code,
              S_OK);
    EXPECT_EQ(first, 2) << "a fraction rounds to an even number";
    EXPECT_EQ(std::pair(V_VT(&last), shown(last)), std::pair(VARTYPE{VT_I2}, std::string("7")));
    EXPECT_NE(V_DISPATCH(&clipboard), playfile_.Get());
    EXPECT_EQ(shown(Call(V_DISPATCH(&clipboard), "TotalFrames").value), "6");
    EXPECT_EQ(Call(playfile_.Get(), "MoveFrame", {2, "7"}).code, S_OK);
}

TEST_F(LateBound, RefusesWhatNoMemberTakes) {
    const Value object = playfile_.Get(), otherObject = signs_.Get();
    const struct {
        const char *why, *member;
        std::vector<Value> arguments;
        HRESULT code;
        int wrongArgument = -1;
        WORD flags = kUse;
    } cases[] = {
        {"no such member", "NoSuchMember", {}, DISP_E_UNKNOWNNAME},
        {"no number", "MoveFrame", {1, "seven"}, DISP_E_TYPEMISMATCH, 0},
        {"beyond 16 bits", "MoveFrame", {70000, 1}, DISP_E_OVERFLOW, 1},
        {"an object for a number", "MoveFrame", {object, 1}, DISP_E_TYPEMISMATCH, 1},
        {"a number for an object", "CopyInfo", {1, 2, 3}, DISP_E_TYPEMISMATCH, 0},
        {"an object of another class", "PasteInfo", {1, otherObject}, DISP_E_TYPEMISMATCH, 0},
        {"one of two", "MoveFrame", {1}, DISP_E_BADPARAMCOUNT},
        {"three of two", "MoveFrame", {1, 2, 3}, DISP_E_BADPARAMCOUNT},
        {"a method set to no flag", "SetSuppressMessages", {"perhaps"}, DISP_E_TYPEMISMATCH, 0, kSet},
        {"a method without an argument to set", "MakeLineVarsValid", {1}, DISP_E_MEMBERNOTFOUND, -1, kSet},
        {"a property to read only", "IsLegacy", {true}, DISP_E_MEMBERNOTFOUND, -1, kSet},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const CallResult result = Call(playfile_.Get(), c.member, c.arguments, c.flags);
        EXPECT_EQ(result.code, c.code);
        EXPECT_EQ(result.wrongArgument, c.wrongArgument);
    }
    EXPECT_EQ(shown(Call(playfile_.Get(), "TotalFrames").value), "20") << "nothing of it did anything";
}

TEST_F(LateBound, MayNameItsArguments) {
    settings_->WriteSetting(WideText("Named").get(), WideText("kept").get());
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"GetPrivateSetting"), const_cast<LPOLESTR>(L"DefaultValue"),
                        const_cast<LPOLESTR>(L"Key")};
    DISPID ids[3] = {};
    ASSERT_EQ(settings_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_NEUTRAL, ids), S_OK);
    Value arguments[] = {"missing", "Named"}, result;
    DISPPARAMS passed{arguments, &ids[1], 2, 2};
    settings_->Invoke(ids[0], IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &passed, &result, nullptr, nullptr);
    EXPECT_EQ(shown(result), "kept");
}

using LoadedServer = AutomationTest;

TEST_F(LoadedServer, ServesThreadsAtOnceAndIsUnloadedAfterwards) {
    for (int turn = 0; turn < 2; ++turn) {
        std::atomic<int> created = 0, served = 0;
        const auto use = [&] {
            const Apartment apartment;
            const auto playfile = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
            for (++created; created < 4;)
                std::this_thread::yield(); // a latch of this compiler sometimes waits for ever
            served += shown(Call(playfile.Get(), "TOTALframes").value) == "20";
        };
        {
            const std::jthread others[] = {std::jthread(use), std::jthread(use), std::jthread(use)};
            use();
        }
        EXPECT_EQ(served, 4);
        CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_EQ(GetModuleHandleW(L"qrtVistrelClasses4.dll"), nullptr);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
