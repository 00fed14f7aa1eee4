#include "automation/DispatchObject.h"
#include "frame/RuntimeError.h"

#include "AutomationTesting.h"

#include <CallTest.h>

namespace qrtVistrelClasses4 {
namespace {

struct Nothing {};

class CallTestObject : public DispatchObject<ICallTest, ::CallTest, Nothing> {
public:
    STDMETHODIMP Swap(short* left, short* right) override {
        std::swap(*left, *right);
        return S_OK;
    }
    STDMETHODIMP Append(BSTR* text, BSTR more) override {
        const std::string longer = NarrowText(*text) + NarrowText(more);
        SysFreeString(*text);
        ToAutomation(longer, text);
        return S_OK;
    }
    STDMETHODIMP Invert(VARIANT_BOOL* flag) override {
        *flag = *flag ? VARIANT_FALSE : VARIANT_TRUE;
        return S_OK;
    }
    STDMETHODIMP Describe(VARIANT* value, BSTR* result) override {
        return give(result,
                    [&] { return IsOmitted(*value) ? "omitted" : "type " + std::to_string(V_VT(value)); });
    }
    STDMETHODIMP Exchange(ICallTest** other) override {
        if (*other)
            (*other)->Release();
        *other = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP IsObject(IDispatch* object, VARIANT_BOOL* result) override {
        return give(result, [&] { return object != nullptr; });
    }
    STDMETHODIMP Fail(short* changed) override {
        *changed = 99;
        return run([] { throw RuntimeError(ErrorNumber::subscriptOutOfRange); });
    }
};

class LateBoundCall : public AutomationTest {
protected:
    ComPtr<CallTestObject> object_ = MakeObject<CallTestObject>();
};

TEST_F(LateBoundCall, ConvertsScriptVariablesAndWritesThemBack) {
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
        Value left = c.left;
        Value right = c.right;
        const CallResult called =
            CallMethod(*object_.Get(), L"Swap", {Value::referenceTo(left), Value::referenceTo(right)});
        EXPECT_EQ(called.code, S_OK);
        EXPECT_EQ(V_VT(&left), VT_I2);
        EXPECT_EQ(V_I2(&left), 7);
        EXPECT_EQ(V_I2(&right), 2);
    }
}

TEST_F(LateBoundCall, KeepsTheTypeOfTypedVariables) {
    LONG left = 2;
    short right = 7;
    const CallResult called = CallMethod(*object_.Get(), L"Swap",
                                         {Value::reference(VT_I4, &left), Value::reference(VT_I2, &right)});
    EXPECT_EQ(called.code, S_OK);
    EXPECT_EQ(left, 7);
    EXPECT_EQ(right, 2);
}

TEST_F(LateBoundCall, TakesLiteralsWhereTheMemberWantsVariables) {
    EXPECT_EQ(CallMethod(*object_.Get(), L"Swap", {2, "7"}).code, S_OK);
}

TEST_F(LateBoundCall, ReplacesTextInVariables) {
    Value variable = "frame ";
    EXPECT_EQ(CallMethod(*object_.Get(), L"Append", {Value::referenceTo(variable), 12}).code, S_OK);
    EXPECT_EQ(variable.text(), "frame 12");

    BSTR text = WideText("frame ").release();
    EXPECT_EQ(CallMethod(*object_.Get(), L"Append", {Value::reference(VT_BSTR, &text), true}).code, S_OK);
    EXPECT_EQ(NarrowText(OwnedBstr(text).get()), "frame True");
}

TEST_F(LateBoundCall, InvertsFlagsInVariables) {
    Value empty;
    EXPECT_EQ(CallMethod(*object_.Get(), L"Invert", {Value::referenceTo(empty)}).code, S_OK);
    EXPECT_EQ(V_VT(&empty), VT_BOOL);
    EXPECT_EQ(V_BOOL(&empty), VARIANT_TRUE);
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
        {"an object without a value", static_cast<IDispatch*>(object_.Get()), DISP_E_TYPEMISMATCH},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Value left = c.left;
        const CallResult called = CallMethod(*object_.Get(), L"Swap", {Value::referenceTo(left), 7});
        EXPECT_EQ(called.code, c.wanted);
        EXPECT_EQ(called.wrongArgument, 1u) << "arguments count from the last one";
        EXPECT_EQ(V_VT(&left), V_VT(&c.left));
    }
}

TEST_F(LateBoundCall, PassesOptionalArgumentsAsTheyAre) {
    Value variable = 5;
    EXPECT_EQ(CallMethod(*object_.Get(), L"Describe").value.text(), "omitted");
    EXPECT_EQ(CallMethod(*object_.Get(), L"Describe", {Value::omitted()}).value.text(), "omitted");
    EXPECT_EQ(CallMethod(*object_.Get(), L"Describe", {"text"}).value.text(), "type 8");
    EXPECT_EQ(CallMethod(*object_.Get(), L"Describe", {Value::referenceTo(variable)}).value.text(), "type 3");
}

TEST_F(LateBoundCall, PutsObjectsIntoVariables) {
    struct Case {
        const char* why;
        Value before;
    };
    const Case cases[] = {
        {"a variable without a value", {}},
        {"Nothing", static_cast<IDispatch*>(nullptr)},
        {"another object", static_cast<IDispatch*>(MakeObject<CallTestObject>().Get())},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Value variable = c.before;
        EXPECT_EQ(CallMethod(*object_.Get(), L"Exchange", {Value::referenceTo(variable)}).code, S_OK);
        EXPECT_EQ(V_VT(&variable), VT_DISPATCH);
        EXPECT_EQ(V_DISPATCH(&variable), object_.Get());
    }
    EXPECT_EQ(CallMethod(*object_.Get(), L"Exchange", {"text"}).code, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBoundCall, CountsWhatStandsForNothingAsNoObject) {
    Value empty;
    const Value absent[] = {static_cast<IDispatch*>(nullptr), Value(), Value::omitted(),
                            Value::referenceTo(empty)};
    for (const Value& value : absent)
        EXPECT_EQ(CallMethod(*object_.Get(), L"IsObject", {value}).value.boolVal, VARIANT_FALSE);
    const Value present = static_cast<IDispatch*>(object_.Get());
    EXPECT_EQ(CallMethod(*object_.Get(), L"IsObject", {present}).value.boolVal, VARIANT_TRUE);
}

TEST_F(LateBoundCall, LeavesVariablesAloneWhenTheMemberFails) {
    Value variable = 5;
    const CallResult called = CallMethod(*object_.Get(), L"Fail", {Value::referenceTo(variable)});
    EXPECT_EQ(called.code, DISP_E_EXCEPTION);
    EXPECT_EQ(called.exceptionCode, static_cast<HRESULT>(0x800A0009));
    EXPECT_EQ(called.description, "Subscript out of range");
    EXPECT_EQ(called.source, "qrtVistrelClasses4");
    EXPECT_EQ(V_I4(&variable), 5);
}

} // namespace
} // namespace qrtVistrelClasses4
