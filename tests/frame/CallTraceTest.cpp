#include <qrtVistrelClasses4/CallTrace.h>

#include "TestHost.h"
#include "frame/Traced.h"
#include "frame/modClassIDGenerator.h"
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure sub(std::string_view name) { return {"Signs.cls", ProcedureKind::Sub, name}; }
void fail() { throw RuntimeError(ErrorNumber::overflow); }
void enterHost() { TraceEnter("Host.frm", "Sub Load", "(Index=1)"); }
void leaveHost() { TraceLeave("Host.frm", "Sub Load", "(Index=1)"); }

struct Sign {
    static constexpr std::string_view ClassName() { return "Sign"; }
};

class CallTrace : public testing::Test {
protected:
    ~CallTrace() override { EXPECT_TRUE(RunningProcedures().empty()); }
    /// Of the only error, the procedures that were running.
    Texts reportedStack() {
        Texts stack;
        for (const ErrorReport& report : host_.reports.all)
            for (const TraceLine& line : report.stack)
                stack.push_back(line.procedure + line.arguments);
        return stack;
    }

    TestHost host_;
    KeptTrace trace_;
    ScopedTraceRecorder recorderScope_{trace_};
};

TEST_F(CallTrace, ShowsEachKindOfArgument) {
    const std::string text = "PIER 1";
    const std::optional<std::string> missing;
    const std::int16_t number = 5;
    const double seconds = 1.5;
    const bool flag = true;
    const Sign sign, *const present = &sign, *const absent = nullptr;
    const auto shared = std::make_shared<Sign>();
    trace_.withModules = true;
    traced(
        {"Signs.bas", ProcedureKind::PropertyGet, "Sign"}, [] {}, Arg{"vData", text}, Arg{"n", number},
        Arg{"s", seconds}, Arg{"b", flag}, Arg{"sign", present}, Arg{"other", absent},
        Arg{"sFileName", missing}, Arg{"owned", shared});
    const std::string line = "Signs.bas Property (Get) Sign (vData=PIER 1, n=5, s=1.5, b=True, sign=<Sign>, "
                             "other=<Nothing>, sFileName=<Missing>, owned=<Sign>)";
    EXPECT_EQ(trace_.lines, (Texts{"> " + line, "< " + line}));
}

TEST_F(CallTrace, ShowsChangedArgumentsAtExitAndKeepsThoseOfTheEntryForReports) {
    for (const auto& [traceIsOn, fails] : {std::pair(true, false), {true, true}, {false, true}}) {
        SwitchTrace(traceIsOn);
        std::int16_t number = 2;
        std::string name = "a";
        const auto change = [&, shouldFail = fails] {
            number = 7;
            name = "b";
            if (shouldFail)
                fail();
        };
        traced(sub("Change"), change, Arg{"number", number}, Arg{"name", name});
    }
    SwitchTrace(true);
    const std::string entry = "> Sub Change (number=2, name=a)";
    EXPECT_EQ(trace_.lines, (Texts{entry, "< Sub Change (number=7, name=b)", entry}))
        << "an error skips the exit";
    for (const ErrorReport& report : host_.reports.all)
        EXPECT_EQ(report.procedure.arguments, "(number=2, name=a)");
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6}));
}

TEST_F(CallTrace, ShowsThatTheBuiltInCommandsFollowTheFolderOfTheirFile) {
    host_.machine.files().observer = [&](const FileOperation& operation) {
        trace_.lines.emplace_back(operation.kind == FileOperation::createFolder ? "> Sub folder" : "");
        return SystemError::none;
    };
    const clsCommandInterface commands;
    std::string steps;
    for (const std::string& line : trace_.lines)
        if (const std::size_t name = line.find(' ', 2); line.find("Registry") == line.npos && line[0] == '>')
            steps += line.substr(name, line.find(" (") - name);
    EXPECT_EQ(steps, " Class_Initialize LoadCommandTable ReadSetting folder BuildBuiltInCommands");
}

TEST_F(CallTrace, IsSkippedWhileSwitchedOffButLeavesWhatWasEnteredBefore) {
    enterHost();
    SwitchTrace(false);
    leaveHost();
    enterHost();
    SwitchTrace(true);
    EXPECT_EQ(trace_.lines, Texts{"> Sub Load (Index=1)"});
}

TEST_F(CallTrace, ReportsTheRunningProceduresOnceAndForgetsThoseThatAreNeverLeft) {
    enterHost();
    TraceLeave("Host.frm", "Sub NeverEntered", "()");
    traced(sub("Forgetful"), enterHost);
    traced(sub("Outer"), [] {
        leaveHost(); // not here: the library is in between
        enterHost();
        fail();
    });
    leaveHost();
    EXPECT_EQ(reportedStack(), (Texts{"Sub Load(Index=1)", "Sub Outer()", "Sub Load(Index=1)"}));
}

TEST_F(CallTrace, CannotMakeAProcedureFail) {
    struct Failing final : TraceRecorder, ErrorReporter {
        void entered(const TraceLine&) override { throw std::bad_alloc(); }
        void left(const TraceLine&) override { throw std::runtime_error("no room"); }
        void report(const ErrorReport&) override { throw std::runtime_error("log full"); }
    } failing;
    const ScopedTraceRecorder recorderScope(failing);
    EXPECT_EQ(traced(sub("Work"), [] { return 7; }), 7);
    enterHost();
    leaveHost();
    EXPECT_TRUE(host_.reports.all.empty());
    const ScopedErrorReporter reporterScope(failing);
    traced(sub("Fail"), fail);
}

TEST_F(CallTrace, TurnsEveryExceptionIntoANumberAndTheFailureValue) {
    EXPECT_EQ(traced(sub("A"), []() -> std::string { throw RuntimeError(9, "own words"); }), "");
    EXPECT_EQ(traced(sub("B"), []() -> int { throw std::bad_alloc(); }), 0);
    EXPECT_FALSE(traced(sub("C"), []() -> bool { throw std::logic_error("unforeseen"); }));
    EXPECT_EQ(host_.reports.all.at(0).error.description(), "own words");
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 7, 51}));
    EXPECT_THROW(untraced([] { throw std::bad_alloc(); }), RuntimeError);
}

TEST_F(CallTrace, ShowsTheErrorOfAClassDebugIDPastTheLast) {
    LastClassDebugID(INT32_MAX);
    EXPECT_EQ(SettingsInfoClass().ClassDebugID(), 0);
    LastClassDebugID(0);
    EXPECT_EQ(reportedStack(), (Texts{"Sub Class_Initialize()", "Function GetNextClassDebugID()"}));
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

} // namespace
} // namespace qrtVistrelClasses4
