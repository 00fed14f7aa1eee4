#include "AutomationTesting.h"
#include "automation/DispatchObject.h"

#include <CallTest.h>

namespace qrtVistrelClasses4 {
namespace {

struct Nothing {};

class CallTestObject : public DispatchObject<ICallTest, ::CallTest, Nothing> {
public:
    STDMETHODIMP Swap(short* left, short* right) override { return std::swap(*left, *right), S_OK; }
    STDMETHODIMP Append(BSTR* text, BSTR more) override {
        const std::string before = NarrowText(OwnedBstr(*text).get());
        return give(text, [&] { return before + NarrowText(more); });
    }
    STDMETHODIMP Describe(VARIANT* value, BSTR* result) override {
        return give(result,
                    [&] { return IsOmitted(*value) ? "omitted" : "type " + std::to_string(V_VT(value)); });
    }
    STDMETHODIMP Exchange(ICallTest** other) override {
        ComPtr<ICallTest> before;
        before.Attach(*other);
        return ComPtr<ICallTest>(this).CopyTo(other);
    }
    STDMETHODIMP Fail(short* changed) override {
        *changed = 99;
        return E_FAIL;
    }
};

class LateBoundCall : public AutomationTest {
protected:
    CallResult call(const wchar_t* member, std::vector<Value> arguments) {
        return Call(object_.Get(), member, std::move(arguments));
    }

    ComPtr<CallTestObject> object_ = MakeObject<CallTestObject>();
};

TEST_F(LateBoundCall, ConvertsVariablesAndWritesThemBack) {
    struct Case {
        const char* why;
        Value left, right;
    };
    const Case cases[] = {
        {"numbers of a script", 2, 7},
        {"texts that hold numbers", "2", "7"},
        {"a fraction that rounds to an even number", 2.5, 7.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Value left = c.left, right = c.right;
        EXPECT_EQ(call(L"Swap", {Value::reference(&left), Value::reference(&right)}).code, S_OK);
        EXPECT_EQ(V_VT(&left), VT_I2);
        EXPECT_EQ(V_I2(&left), 7);
        EXPECT_EQ(V_I2(&right), 2);
    }
}

TEST_F(LateBoundCall, KeepsTheTypeOfTypedVariables) {
    LONG left = 2;
    short right = 7;
    EXPECT_EQ(call(L"Swap", {Value::reference(&left, VT_I4), Value::reference(&right, VT_I2)}).code, S_OK);
    EXPECT_EQ(left, 7);
    EXPECT_EQ(right, 2);
    BSTR text = WideText("frame ").release();
    EXPECT_EQ(call(L"Append", {Value::reference(&text, VT_BSTR), true}).code, S_OK);
    EXPECT_EQ(NarrowText(OwnedBstr(text).get()), "frame True");
}

TEST_F(LateBoundCall, TakesLiteralsWhereTheMemberWantsVariables) {
    EXPECT_EQ(call(L"Swap", {2, "7"}).code, S_OK);
    EXPECT_TRUE(FAILED(call(L"Swap", {2}).code)) << "both of them";
}

TEST_F(LateBoundCall, TellsWhichArgumentDoesNotConvert) {
    struct Case {
        const char* why;
        Value left;
        HRESULT wanted;
    };
    const Case cases[] = {
        {"no number", "seven", DISP_E_TYPEMISMATCH},
        {"beyond 16 bits", 70000, DISP_E_OVERFLOW},
        {"an object without a value", object_.Get(), DISP_E_TYPEMISMATCH},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Value left = c.left;
        const CallResult called = call(L"Swap", {Value::reference(&left), 7});
        EXPECT_EQ(called.code, c.wanted);
        EXPECT_EQ(called.wrongArgument, 1u) << "arguments count from the last one";
        EXPECT_EQ(V_VT(&left), V_VT(&c.left));
    }
}

TEST_F(LateBoundCall, PassesOptionalArgumentsAsTheyAre) {
    Value variable = 5;
    EXPECT_EQ(call(L"Describe", {}).value.text(), "omitted");
    EXPECT_EQ(call(L"Describe", {Value::omitted()}).value.text(), "omitted");
    EXPECT_EQ(call(L"Describe", {"text"}).value.text(), "type 8");
    EXPECT_EQ(call(L"Describe", {Value::reference(&variable)}).value.text(), "type 3");
}

TEST_F(LateBoundCall, PutsObjectsIntoVariables) {
    const ComPtr<CallTestObject> another = MakeObject<CallTestObject>();
    for (const Value& before : {Value(), Value(static_cast<IDispatch*>(nullptr)), Value(another.Get())}) {
        SCOPED_TRACE(V_VT(&before));
        Value variable = before;
        EXPECT_EQ(call(L"Exchange", {Value::reference(&variable)}).code, S_OK);
        EXPECT_EQ(V_VT(&variable), VT_DISPATCH);
        EXPECT_EQ(V_DISPATCH(&variable), object_.Get());
    }
}

TEST_F(LateBoundCall, LeavesVariablesAloneWhenTheMemberFails) {
    Value variable = 5;
    EXPECT_EQ(call(L"Fail", {Value::reference(&variable)}).code, DISP_E_EXCEPTION);
    EXPECT_EQ(V_I4(&variable), 5);
}

} // namespace
} // namespace qrtVistrelClasses4
