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
void fail() { throw RuntimeError(ErrorNumber::overflow); }

struct Sign {
    static constexpr std::string_view ClassName() { return "Sign"; }
};

class CallTrace : public testing::Test {
protected:
    static void enterHost() { TraceEnter("Host.frm", "Sub Load", "(Index=1)"); }
    static void leaveHost() { TraceLeave("Host.frm", "Sub Load", "(Index=1)"); }

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
        {"Signs.bas", ProcedureKind::PropertyGet, "Sign"}, [] {}, Arg{"vData", text}, Arg{"n", number},
        Arg{"s", seconds}, Arg{"b", flag}, Arg{"sign", present}, Arg{"other", absent},
        Arg{"sFileName", missing});
    const std::string line = "Signs.bas Property (Get) Sign (vData=PIER 1, n=5, s=1.5, b=True, sign=<Sign>, "
                             "other=<Nothing>, sFileName=<Missing>)";
    EXPECT_EQ(trace_.lines, (Texts{"> " + line, "< " + line}));
}

TEST_F(CallTrace, ShowsChangedArgumentsAtExitAndKeepsThoseOfTheEntryForReports) {
    for (const bool fails : {false, true}) {
        std::int16_t number = 2;
        std::string name = "a";
        const auto change = [&] {
            number = 7;
            name = "b";
            if (fails)
                fail();
        };
        traced(sub("Change"), change, Arg{"number", number}, Arg{"name", name});
    }
    EXPECT_EQ(trace_.lines, (Texts{"> Sub Change (number=2, name=a)", "< Sub Change (number=7, name=b)",
                                   "> Sub Change (number=2, name=a)"}))
        << "an error skips the exit";
    EXPECT_EQ(host_.reports.all.at(0).procedure.arguments, "(number=2, name=a)");
}

TEST_F(CallTrace, IsSkippedWhileSwitchedOff) {
    SwitchTrace(false);
    enterHost();
    traced(sub("Quiet"), [] { EXPECT_TRUE(RunningProcedures().empty()); });
    traced(sub("Fail"), fail);
    leaveHost();
    SwitchTrace(true);
    EXPECT_TRUE(trace_.lines.empty());
    EXPECT_EQ(host_.reports.all.at(0).procedure.procedure, "Sub Fail");
    EXPECT_TRUE(host_.reports.all.at(0).stack.empty());
}

TEST_F(CallTrace, ReportsTheRunningProceduresInnermostLast) {
    enterHost();
    traced(sub("Outer"), [] { traced(sub("Inner"), fail); });
    leaveHost();
    ASSERT_EQ(host_.reports.all.size(), 1u) << "reported once, by the procedure that failed";
    Texts stack;
    for (const TraceLine& line : host_.reports.all[0].stack)
        stack.push_back(line.procedure + line.arguments);
    EXPECT_EQ(stack, (Texts{"Sub Load(Index=1)", "Sub Outer()", "Sub Inner()"}));
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST_F(CallTrace, ForgetsEntriesWhoseLeaveIsMissing) {
    traced(sub("Outer"), [] {
        enterHost();
        fail();
    });
    EXPECT_EQ(host_.reports.all.at(0).stack.size(), 2u);
    traced(sub("Outer"), enterHost);
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST_F(CallTrace, LeavesOnlyWhatTheHostEnteredEvenWhenSwitchedOffMeanwhile) {
    enterHost();
    TraceLeave("Host.frm", "Sub NeverEntered", "()");
    traced(sub("Inside"), [] {
        leaveHost();
        EXPECT_EQ(RunningProcedures().size(), 2u);
    });
    SwitchTrace(false);
    leaveHost();
    SwitchTrace(true);
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST_F(CallTrace, CannotMakeAProcedureFail) {
    class Failing final : public TraceRecorder {
        void entered(const TraceLine&) override { throw std::bad_alloc(); }
        void left(const TraceLine&) override { throw std::runtime_error("no room"); }
    } failing;
    const ScopedTraceRecorder scope(failing);
    EXPECT_EQ(traced(sub("Work"), [] { return 7; }), 7);
    enterHost();
    leaveHost();
    EXPECT_TRUE(host_.reports.all.empty());
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
    traced(sub("A"), fail);
    EXPECT_TRUE(RunningProcedures().empty());
}

TEST(ErrorTrap, KnowsTheErrorsOfTheFileSystem) {
    for (const auto& [error, number] :
         {std::pair(SystemError::fileNotFound, 53), std::pair(SystemError::folderNotFound, 76),
          std::pair(SystemError::accessDenied, 75), std::pair(SystemError::inUse, 70),
          std::pair(SystemError::diskFull, 61), std::pair(SystemError::tooLarge, 7)})
        EXPECT_EQ(ErrorFor(error).number(), number);
}

TEST(ClassDebugID, CountsUpAndStopsAtItsEnd) {
    TestHost host;
    const std::int32_t first = GetNextClassDebugID();
    EXPECT_EQ(GetNextClassDebugID(), first + 1);
    LastClassDebugID(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(SettingsInfoClass().ClassDebugID(), 0);
    ASSERT_EQ(host.reports.all.size(), 1u) << "trapped by the creator of the object";
    EXPECT_EQ(host.reports.all[0].procedure.procedure, "Sub Class_Initialize");
    EXPECT_EQ(host.reports.all[0].stack.back().procedure, "Function GetNextClassDebugID");
    EXPECT_EQ(host.reports.takeNumbers(), Numbers{6});
    EXPECT_THROW(GetNextClassDebugID(), RuntimeError);
    EXPECT_TRUE(RunningProcedures().empty());
    EXPECT_EQ(LastClassDebugID(), std::numeric_limits<std::int32_t>::max());
    LastClassDebugID(first);
}

} // namespace
} // namespace qrtVistrelClasses4
