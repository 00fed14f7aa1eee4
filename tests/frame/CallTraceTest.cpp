#include "frame/CallTrace.h"

#include "TestHost.h"
#include "frame/Traced.h"
#include "frame/modClassIDGenerator.h"
#include "settings/SettingsInfoClass.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <optional>
#include <stdexcept>

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure sub(std::string_view name) { return {"Signs.cls", ProcedureKind::Sub, name}; }

struct Sign {
    static constexpr std::string_view ClassName() { return "Sign"; }
};

class CallTrace : public testing::Test {
protected:
    TestHost host_;
    KeptTrace trace_;
    ScopedTraceRecorder recorderScope_{trace_};
};

TEST_F(CallTrace, ShowsEachKindOfArgument) {
    const std::string text = "PIER 1";
    const std::int16_t number = 5;
    const double seconds = 1.5;
    const bool flag = true;
    Sign sign;
    const Sign* const present = &sign;
    const Sign* const absent = nullptr;
    const std::optional<std::string> missing;
    trace_.withModules = true;
    traced(
        sub("Show"), [] {}, Arg{"vData", text}, Arg{"n", number}, Arg{"s", seconds}, Arg{"b", flag});
    traced(
        {"Signs.bas", ProcedureKind::PropertyGet, "Sign"}, [] {}, Arg{"sign", present}, Arg{"other", absent},
        Arg{"sFileName", missing});
    EXPECT_EQ(trace_.lines,
              (Texts{
                  "> Signs.cls Sub Show (vData=PIER 1, n=5, s=1.5, b=True)",
                  "< Signs.cls Sub Show (vData=PIER 1, n=5, s=1.5, b=True)",
                  "> Signs.bas Property (Get) Sign (sign=<Sign>, other=<Nothing>, sFileName=<Missing>)",
                  "< Signs.bas Property (Get) Sign (sign=<Sign>, other=<Nothing>, sFileName=<Missing>)",
              }));
}

TEST_F(CallTrace, ShowsChangedArgumentsAtExitAndKeepsThoseOfTheEntryForReports) {
    std::int16_t number = 2;
    std::string name = "a";
    const auto change = [&] {
        number = 7;
        name = "b";
    };
    traced(sub("Change"), change, Arg{"number", number}, Arg{"name", name});
    EXPECT_EQ(trace_.lines, (Texts{"> Sub Change (number=2, name=a)", "< Sub Change (number=7, name=b)"}));

    number = 2;
    name = "a";
    traced(
        sub("Fail"),
        [&] {
            change();
            throw RuntimeError(ErrorNumber::overflow);
        },
        Arg{"number", number}, Arg{"name", name});
    EXPECT_EQ(host_.reports.all.at(0).procedure.arguments, "(number=2, name=a)");
    EXPECT_EQ(trace_.lines.size(), 3u) << "an error skips the exit";
}

TEST_F(CallTrace, IsSkippedWhileSwitchedOff) {
    SwitchTrace(false);
    TraceEnter("Host.frm", "Sub Load", "()");
    traced(sub("Quiet"), [] { EXPECT_TRUE(RunningProcedures().empty()); });
    traced(sub("Fail"), [] { throw RuntimeError(ErrorNumber::overflow); });
    TraceLeave("Host.frm", "Sub Load", "()");
    SwitchTrace(true);
    EXPECT_TRUE(trace_.lines.empty());
    EXPECT_EQ(host_.reports.all.at(0).procedure.procedure, "Sub Fail");
    EXPECT_TRUE(host_.reports.all.at(0).stack.empty());
}

TEST_F(CallTrace, ReportsTheRunningProceduresInnermostLast) {
    TraceEnter("Host.frm", "Sub Load", "(Index=1)");
    traced(sub("Outer"), [] { traced(sub("Inner"), [] { throw RuntimeError(ErrorNumber::typeMismatch); }); });
    TraceLeave("Host.frm", "Sub Load", "(Index=1)");
    ASSERT_EQ(host_.reports.all.size(), 1u) << "reported once, by the procedure that failed";
    Texts stack;
    for (const TraceLine& line : host_.reports.all[0].stack)
        stack.push_back(line.procedure + line.arguments);
    EXPECT_EQ(stack, (Texts{"Sub Load(Index=1)", "Sub Outer()", "Sub Inner()"}));
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST_F(CallTrace, ForgetsEntriesWhoseLeaveIsMissing) {
    traced(sub("Outer"), [] {
        TraceEnter("Host.frm", "Sub Forgetful", "()");
        throw RuntimeError(ErrorNumber::overflow);
    });
    EXPECT_EQ(host_.reports.all.at(0).stack.size(), 2u);
    traced(sub("Outer"), [] { TraceEnter("Host.frm", "Sub Forgetful", "()"); });
    TraceLeave("Host.frm", "Sub NeverEntered", "()");
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST_F(CallTrace, LeavesWhatItEnteredBeforeItWasSwitchedOff) {
    TraceEnter("Host.frm", "Sub Load", "()");
    SwitchTrace(false);
    TraceLeave("Host.frm", "Sub Load", "()");
    SwitchTrace(true);
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST(TraceRecorder, CannotMakeAProcedureFail) {
    class Failing final : public TraceRecorder {
        void entered(const TraceLine&) override { throw std::bad_alloc(); }
        void left(const TraceLine&) override { throw std::runtime_error("no room"); }
    } failing;
    const TestHost host;
    const ScopedTraceRecorder scope(failing);
    EXPECT_EQ(traced(sub("Work"), [] { return 7; }), 7);
    TraceEnter("Host.frm", "Sub Load", "()");
    TraceLeave("Host.frm", "Sub Load", "()");
    EXPECT_TRUE(host.reports.all.empty());
}

TEST_F(CallTrace, LeavesOnlyWhatTheHostEntered) {
    TraceEnter("Host.frm", "Sub Load", "()");
    traced(sub("Inside"), [] {
        TraceLeave("Host.frm", "Sub Load", "()");
        EXPECT_EQ(RunningProcedures().size(), 2u);
    });
    TraceLeave("Host.frm", "Sub Load", "()");
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST(ErrorTrap, TurnsEveryExceptionIntoANumberAndTheFailureValue) {
    TestHost host;
    EXPECT_EQ(traced(sub("A"), []() -> std::string { throw RuntimeError(9, "own words"); }), "");
    EXPECT_EQ(traced(sub("B"), []() -> int { throw std::bad_alloc(); }), 0);
    EXPECT_EQ(traced(sub("C"), []() -> bool { throw std::logic_error("unforeseen"); }), false);
    EXPECT_EQ(host.reports.all.at(0).error.description(), "own words");
    EXPECT_EQ(host.reports.takeNumbers(), (Numbers{9, 7, 51}));
    EXPECT_THROW(untraced([] { throw std::bad_alloc(); }), RuntimeError);
}

TEST(ErrorTrap, SurvivesAReporterThatFails) {
    class Failing : public ErrorReporter {
        void report(const ErrorReport&) override { throw std::runtime_error("log full"); }
    } failing;
    const ScopedErrorReporter scope(failing);
    EXPECT_EQ(traced(sub("A"), []() -> int { throw RuntimeError(ErrorNumber::overflow); }), 0);
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST(ErrorTrap, KnowsTheErrorsOfTheFileSystem) {
    struct Case {
        SystemError error;
        int number;
    };
    for (const Case& row : {Case{SystemError::fileNotFound, 53}, Case{SystemError::folderNotFound, 76},
                            Case{SystemError::accessDenied, 75}, Case{SystemError::inUse, 70},
                            Case{SystemError::diskFull, 61}, Case{SystemError::tooLarge, 7}})
        EXPECT_EQ(ErrorFor(row.error).number(), row.number);
}

TEST(ClassDebugID, CountsUpAndStopsAtItsEnd) {
    TestHost host;
    const std::int32_t first = GetNextClassDebugID();
    EXPECT_EQ(GetNextClassDebugID(), first + 1);
    LastClassDebugID(std::numeric_limits<std::int32_t>::max());
    EXPECT_THROW(GetNextClassDebugID(), RuntimeError);
    EXPECT_TRUE(RunningProcedures().empty());
    EXPECT_EQ(SettingsInfoClass().ClassDebugID(), 0);
    ASSERT_EQ(host.reports.all.size(), 1u) << "trapped by the creator of the object";
    EXPECT_EQ(host.reports.all[0].procedure.procedure, "Sub Class_Initialize");
    EXPECT_EQ(host.reports.all[0].stack.back().procedure, "Function GetNextClassDebugID");
    EXPECT_EQ(host.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(LastClassDebugID(), std::numeric_limits<std::int32_t>::max());
    LastClassDebugID(first);
}

} // namespace
} // namespace qrtVistrelClasses4
