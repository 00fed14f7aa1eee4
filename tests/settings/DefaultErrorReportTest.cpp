#include "settings/DefaultErrorReport.h"

#include "HostTest.h"
#include "frame/Traced.h"
#include "settings/ErrorLog.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {
namespace {

class DefaultErrorReport : public HostTest {
public:
    void fail(bool quiet = false) {
        const std::int16_t number = 7;
        const ScopedErrorReporter scope(defaultErrorReporter());
        const auto body = [&] {
            const RuntimeError error(ErrorNumber::overflow);
            throw quiet ? error.quietly() : error;
        };
        traced({"Signs.cls", ProcedureKind::Sub, "Send"}, body, Arg{"number", number});
    }
    std::string log() { return files().content(path_).value_or(""); }

    const std::string path_ = host_.inLibrary("VistrelErrors.log");
    const std::string report_ = "Error 6: Overflow\r\nIn Signs.cls, Sub Send (number=7)\r\n"
                                "Running procedures:\r\n    Signs.cls, Sub Send (number=7)\r\n";
    const std::string entry_ = "2001-02-03 04:05:06  " + report_;
    const Texts box_{"! Vistrel Error Report: " + report_};
};

TEST_F(DefaultErrorReport, GoesToTheLogAndToTheOperatorUnlessItIsQuietOrSwitchedOff) {
    fail(true);
    WriteSetting("Vistrel3", "Settings", "ShowErrorReports", "False");
    fail();
    EXPECT_EQ(takeBoxes(), Texts());
    EXPECT_EQ(log(), entry_ + entry_);
    host_.machine.logs = host_.inLibrary("state");
    files().makeFolders(*host_.machine.logs);
    fail(true);
    EXPECT_EQ(files().content(JoinPath(*host_.machine.logs, "VistrelErrors.log")), entry_);
    host_.machine.logs.reset();
    WriteSetting("Vistrel3", "Settings", "ShowErrorReports", "neither yes nor no");
    files().setReadOnly(path_);
    fail();
    EXPECT_EQ(takeBoxes(), box_) << "and no other for the log";
    host_.machine.messageBoxes().isAttended = false;
    fail();
    EXPECT_EQ(host_.machine.console().error, report_) << "where nobody sees boxes";
    host_.machine.environment["QRTVISTREL_UNATTENDED"] = "1";
    fail();
    EXPECT_EQ(host_.machine.console().error, report_ + report_) << "unattended, too";
    host_.machine.messageBoxes().isAttended = true;
    fail(true);
    EXPECT_EQ(host_.machine.console().error, report_ + report_ + report_) << "which is in no log";
    files().setReadOnly(path_, false);
    fail();
    EXPECT_EQ(host_.machine.console().error.size(), 3 * report_.size());
}

TEST_F(DefaultErrorReport, LetsNoTextMakeLinesOfItsOwnOrSteerATerminal) {
    const struct {
        const char* why;
        std::string text, shown;
    } cases[] = {
        {"a record of its own making", "x)\r\nError 1", "x)<0D><0A>Error 1"},
        {"commands to a terminal", "\x1b]0;\a\x1b[2J\x7f", "<1B>]0;<07><1B>[2J<7F>"},
        {"the same of a terminal that reads UTF-8", "\xc2\x9b\x32J", "\xc2<9B>2J"},
        {"letters of any code page", "C:\\M\xe4rz \x80 \x8fx", "C:\\M\xe4rz \x80 \x8fx"},
        {"as much as is shown", std::string(kLongestTextInReport, 'x'),
         std::string(kLongestTextInReport, 'x')},
        {"one more", std::string(kLongestTextInReport, 'x') + '\n',
         std::string(kLongestTextInReport, 'x') + "..."},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        const TraceLine line{row.text, row.text, row.text};
        (void)files().remove(path_);
        defaultErrorReporter().report({RuntimeError(1, row.text), line, {line}});
        const std::string lineShown = row.shown + ", " + row.shown + " " + row.shown + "\r\n";
        const std::string report =
            "Error 1: " + row.shown + "\r\nIn " + lineShown + "Running procedures:\r\n    " + lineShown;
        EXPECT_EQ(takeBoxes(), Texts{"! Vistrel Error Report: " + report});
        EXPECT_EQ(log(), "2001-02-03 04:05:06  " + report);
    }
}

TEST_F(DefaultErrorReport, StartsANewLogPastOneMegabyte) {
    const std::string full(1024 * 1024 - entry_.size() + 1, 'x');
    files().put(path_, full);
    fail(true);
    fail(true);
    EXPECT_EQ(log(), entry_);
    EXPECT_EQ(files().content(host_.inLibrary("VistrelErrors.old.log")), full + entry_);
}

TEST_F(DefaultErrorReport, LogsWhatFailsWhileAMessageIsOpen) {
    /// A box during which the host goes on and fails again.
    struct BusyBox final : MessageBoxes {
        explicit BusyBox(DefaultErrorReport& open) : test(open) {}
        MessageAnswer show(const Message&) override { return test.fail(), ++shown, MessageAnswer::ok; }
        bool attended() override { return true; }
        DefaultErrorReport& test;
        int shown = 0;
    } box(*this);
    const ScopedMessageBoxes scope(box);
    fail();
    EXPECT_EQ(box.shown, 1);
    EXPECT_GT(log().size(), 2 * report_.size());
}

} // namespace
} // namespace qrtVistrelClasses4
