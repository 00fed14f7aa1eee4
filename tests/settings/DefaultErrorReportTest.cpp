#include "settings/DefaultErrorReport.h"

#include "TestHost.h"
#include "frame/Traced.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class DefaultErrorReport : public testing::Test {
public:
    void fail(bool quiet = false) {
        const std::int16_t number = 7;
        const ScopedErrorReporter scope(defaultErrorReporter());
        traced(
            {"Signs.cls", ProcedureKind::Sub, "Send"},
            [&] {
                const RuntimeError error(ErrorNumber::overflow);
                throw quiet ? error.quietly() : error;
            },
            Arg{"number", number});
    }
    std::string log() {
        return host_.machine.files().content(host_.inLibrary("VistrelErrors.log")).value_or("");
    }

    TestHost host_;
    std::vector<Message>& shown_ = host_.machine.messageBoxes().shown;
};

const std::string kReport = "Error 6: Overflow\r\nIn Signs.cls, Sub Send (number=7)\r\n"
                            "Running procedures:\r\n    Signs.cls, Sub Send (number=7)\r\n";
const std::string kEntry = "2001-02-03 04:05:06  " + kReport;

TEST_F(DefaultErrorReport, GoesToTheLogAndToTheOperator) {
    fail();
    EXPECT_EQ(log(), kEntry);
    ASSERT_EQ(shown_.size(), 1u);
    EXPECT_EQ(shown_[0].text, kReport);
    EXPECT_EQ(shown_[0].icon, MessageIcon::critical);
}

TEST_F(DefaultErrorReport, ShowsNoBoxForQuietErrorsOrWhenSwitchedOff) {
    fail(true);
    WriteSetting("Vistrel3", "Settings", "ShowErrorReports", "False");
    fail();
    EXPECT_TRUE(shown_.empty());
    EXPECT_EQ(log(), kEntry + kEntry);
    WriteSetting("Vistrel3", "Settings", "ShowErrorReports", "neither yes nor no");
    fail();
    EXPECT_EQ(shown_.size(), 1u);
}

TEST_F(DefaultErrorReport, GoesToStandardErrorWhereNobodySeesBoxes) {
    host_.machine.messageBoxes().isAttended = false;
    testing::internal::CaptureStderr();
    fail();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), kReport);
    EXPECT_TRUE(shown_.empty());
}

TEST_F(DefaultErrorReport, StartsANewLogPastOneMegabyte) {
    const std::string full(kErrorLogLimitBytes + 1, 'x');
    host_.machine.files().put(host_.inLibrary("VistrelErrors.log"), full);
    fail();
    EXPECT_EQ(host_.machine.files().content(host_.inLibrary("VistrelErrors.old.log")), full);
    EXPECT_EQ(log(), kEntry);
}

TEST_F(DefaultErrorReport, LogsWhatFailsWhileAMessageIsOpen) {
    /// A box during which the host goes on and fails again.
    struct BusyBox final : MessageBoxes {
        explicit BusyBox(DefaultErrorReport& host) : test(host) {}
        MessageAnswer show(const Message&) override {
            ++shown;
            test.fail();
            return MessageAnswer::ok;
        }
        bool attended() override { return true; }
        DefaultErrorReport& test;
        int shown = 0;
    } box(*this);
    const ScopedMessageBoxes scope(box);
    fail();
    EXPECT_EQ(box.shown, 1);
    EXPECT_GT(log().size(), 2 * kReport.size());
}

TEST_F(DefaultErrorReport, NeverMakesAnotherError) {
    host_.machine.files().setReadOnly(host_.machine.library);
    host_.machine.files().bytesLeft = 0;
    fail();
    EXPECT_EQ(shown_.size(), 1u);
    EXPECT_EQ(log(), "");
}

} // namespace
} // namespace qrtVistrelClasses4
