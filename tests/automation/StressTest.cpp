// Every kind of argument for every member that takes variables, what no member takes, and many objects.
#include "AutomationTesting.h"

#include <psapi.h>
#include <qrtVistrelClasses4.h>

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// A variable of one type, or of none in particular, or a value that is none.
class Variable {
public:
    enum Kind { missing, plain, untyped, typed };

    Variable(Kind kind, VARTYPE type, const Value& value) : kind_(kind), type_(type), value_(value) {
        VariantChangeType(&value_, &value_, 0, type);
    }
    Value argument() {
        switch (kind_) {
        case typed:
            return Value::reference(&V_I4(&value_), type_);
        case untyped:
            return Value::reference(&value_);
        case plain:
            return value_;
        default:
            return Value::omitted();
        }
    }
    /// Numbers and flags as text; whether there is an object; the end of long texts.
    std::string now() const {
        if (V_VT(&value_) == VT_DISPATCH)
            return V_DISPATCH(&value_) ? "object" : "none";
        Value text;
        VariantChangeType(&text, const_cast<Value*>(&value_), VARIANT_ALPHABOOL, VT_BSTR);
        const std::string all = text.text();
        return (all.size() > 12 ? "..." : "") +
               all.substr(all.size() - std::min<std::size_t>(all.size(), 12));
    }

private:
    Kind kind_;
    VARTYPE type_;
    Value value_;
};

struct TakenVariable {
    VARTYPE type;
    Value before;
    const char* after;
};
struct Taker {
    const wchar_t* member;
    std::vector<TakenVariable> arguments;
    bool mayBeMissing = false;
};

class Stress : public AutomationTest {
protected:
    ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
    ComPtr<_DisplayDatabaseClass> signs_ = Create<_DisplayDatabaseClass>(CLSID_DisplayDatabaseClass);
    const Value noObject_{static_cast<IDispatch*>(nullptr)};
    const std::vector<Taker> onFrames_{
        {L"InsertFrame", {{VT_BOOL, false, "False"}}, true},
        {L"MoveFrame", {{VT_I2, 3, "3"}, {VT_I2, 1, "1"}}},
        {L"CopyInfo", {{VT_I2, 3, "1"}, {VT_I2, 1, "3"}, {VT_DISPATCH, noObject_, "object"}}},
        {L"CutInfo", {{VT_I2, 3, "1"}, {VT_I2, 1, "3"}, {VT_DISPATCH, noObject_, "object"}}},
    };
    const std::vector<Taker> onSigns_{
        {L"WriteAllDisplaysToDisk", {{VT_BSTR, "Stressed.dat", "...Stressed.dat"}}},
        {L"RetrieveAllDisplayInfoFromDisk", {{VT_BSTR, "Stressed.dat", "...Stressed.dat"}}},
    };

    /// Every kind of variable for argument `chosen`, plain values for the others.
    static void expectAllKinds(IDispatch* object, const Taker& taker, std::size_t chosen) {
        for (const auto kind : {Variable::missing, Variable::plain, Variable::untyped, Variable::typed}) {
            SCOPED_TRACE(kind);
            const TakenVariable& taken = taker.arguments[chosen];
            if (kind == Variable::missing && taken.type == VT_BSTR)
                continue; // the operator would be told that no file has that name
            Variable variable(kind, taken.type, taken.before);
            const std::string before = variable.now();
            std::vector<Value> arguments;
            for (std::size_t number = 0; number < taker.arguments.size(); ++number)
                arguments.push_back(number == chosen ? variable.argument() : taker.arguments[number].before);
            const bool isTaken = kind != Variable::missing || taker.mayBeMissing || taken.type == VT_DISPATCH;
            EXPECT_EQ(SUCCEEDED(Call(object, taker.member, arguments).code), isTaken);
            EXPECT_EQ(variable.now(), kind >= Variable::untyped ? taken.after : before);
        }
    }
};

TEST_F(Stress, TakesEveryKindOfVariable) {
    playfile_->put_CurrentFrame(1);
    for (const auto& [object, takers] :
         {std::pair<IDispatch*, const std::vector<Taker>&>(playfile_.Get(), onFrames_),
          {signs_.Get(), onSigns_}})
        for (const Taker& taker : takers)
            for (std::size_t number = 0; number < taker.arguments.size(); ++number) {
                SCOPED_TRACE(NarrowText(OwnedBstr(SysAllocString(taker.member)).get()) + " " +
                             std::to_string(number));
                expectAllKinds(object, taker, number);
            }
}

TEST_F(Stress, RefusesWhatNoMemberTakes) {
    const Value noNumber = "seven", tooLarge = 70000, object = playfile_.Get();
    struct Case {
        const char* why;
        const wchar_t* member;
        std::vector<Value> arguments;
        HRESULT wanted;
    };
    const Case cases[] = {
        {"no such member", L"NoSuchMember", {}, DISP_E_UNKNOWNNAME},
        {"no number", L"MoveFrame", {1, noNumber}, DISP_E_TYPEMISMATCH},
        {"beyond 16 bits", L"MoveFrame", {tooLarge, 1}, DISP_E_OVERFLOW},
        {"an object for a number", L"MoveFrame", {object, 1}, DISP_E_TYPEMISMATCH},
        {"an object for a text", L"WritePlayfileToDisk", {object}, DISP_E_TYPEMISMATCH},
        {"a number for an object", L"CopyInfo", {1, 2, 3}, DISP_E_TYPEMISMATCH},
        {"an object of another class", L"PasteInfo", {1, signs_.Get()}, DISP_E_TYPEMISMATCH},
        {"none of two", L"MoveFrame", {}, DISP_E_BADPARAMCOUNT},
        {"one of two", L"MoveFrame", {1}, DISP_E_BADPARAMCOUNT},
        {"three of two", L"MoveFrame", {1, 2, 3}, DISP_E_BADPARAMCOUNT},
        {"one of none", L"MakeLineVarsValid", {1}, DISP_E_BADPARAMCOUNT},
    };
    for (const Case& row : cases)
        EXPECT_EQ(Call(playfile_.Get(), row.member, row.arguments).code, row.wanted) << row.why;
    short frames = 0;
    playfile_->get_TotalFrames(&frames);
    EXPECT_EQ(frames, 20) << "nothing of it did anything";
}

std::size_t privateBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

TEST_F(Stress, GivesBackTheMemoryOfItsObjects) {
    for (const CLSID& id : {CLSID_FrameInfoClass, CLSID_DisplayDatabaseClass, CLSID_SettingsInfoClass}) {
        const auto makeMany = [&](int count) {
            for (; count > 0; --count)
                Call(Create<IDispatch>(id).Get(), L"ClassDebugID");
            return privateBytes();
        };
        const std::size_t before = makeMany(1000);
        const std::size_t after = makeMany(10000);
        EXPECT_LT(after, before + 300'000) << "30 bytes an object would be a leak";
    }
}

} // namespace
} // namespace qrtVistrelClasses4
