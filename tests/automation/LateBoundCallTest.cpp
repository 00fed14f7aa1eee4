#include "AutomationTesting.h"

#include <qrtVistrelClasses4.h>

namespace qrtVistrelClasses4 {
namespace {

class LateBoundCall : public AutomationTest {
protected:
    CallResult call(const wchar_t* member, std::vector<Value> arguments) {
        return Call(playfile_.Get(), member, std::move(arguments));
    }

    ComPtr<_FrameInfoClass> playfile_ = Create<_FrameInfoClass>(CLSID_FrameInfoClass);
};

TEST_F(LateBoundCall, ConvertsVariablesAndWritesThemBack) {
    const struct {
        const char* why;
        Value first, last;
    } cases[] = {
        {"numbers of a script", 7, 2},
        {"texts that hold numbers", "7", "2"},
        {"a fraction that rounds to an even number", 7.0, 2.5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Value first = c.first, last = c.last, clipboard;
        EXPECT_EQ(call(L"CopyInfo",
                       {Value::reference(&first), Value::reference(&last), Value::reference(&clipboard)})
                      .code,
                  S_OK);
        EXPECT_EQ(V_VT(&first), VT_I2);
        EXPECT_EQ(V_I2(&first), 2) << "the smaller number comes first";
        EXPECT_EQ(V_I2(&last), 7);
    }
}

TEST_F(LateBoundCall, KeepsTheTypeOfTypedVariablesAndPutsObjectsIntoAny) {
    for (const Value& before : {Value(), Value(static_cast<IDispatch*>(nullptr)), Value(playfile_.Get())}) {
        SCOPED_TRACE(V_VT(&before));
        LONG first = 7;
        short last = 2;
        Value clipboard = before;
        EXPECT_EQ(call(L"CopyInfo", {Value::reference(&first, VT_I4), Value::reference(&last, VT_I2),
                                     Value::reference(&clipboard)})
                      .code,
                  S_OK);
        EXPECT_EQ(first, 2);
        EXPECT_EQ(last, 7);
        ASSERT_EQ(V_VT(&clipboard), VT_DISPATCH);
        EXPECT_NE(V_DISPATCH(&clipboard), playfile_.Get());
        const Value frames = Call(V_DISPATCH(&clipboard), L"TotalFrames").value;
        EXPECT_EQ(V_I2(&frames), 6);
    }
}

TEST_F(LateBoundCall, TakesLiteralsWhereTheMemberWantsVariables) {
    EXPECT_EQ(call(L"MoveFrame", {2, "7"}).code, S_OK);
    EXPECT_TRUE(FAILED(call(L"MoveFrame", {2}).code)) << "both of them";
}

TEST_F(LateBoundCall, TellsWhichArgumentDoesNotConvert) {
    const struct {
        const char* why;
        Value from;
        HRESULT wanted;
    } cases[] = {
        {"no number", "seven", DISP_E_TYPEMISMATCH},
        {"beyond 16 bits", 70000, DISP_E_OVERFLOW},
        {"an object without a value", playfile_.Get(), DISP_E_TYPEMISMATCH},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Value from = c.from;
        const CallResult called = call(L"MoveFrame", {Value::reference(&from), 7});
        EXPECT_EQ(called.code, c.wanted);
        EXPECT_EQ(called.wrongArgument, 1u) << "arguments count from the last one";
        EXPECT_EQ(V_VT(&from), V_VT(&c.from));
    }
}

} // namespace
} // namespace qrtVistrelClasses4
