#include "settings/DefaultErrorReport.h"

#include "frame/Conversions.h"
#include "platform/Platform.h"
#include "settings/ErrorLog.h"
#include "settings/OperatorMessages.h"
#include "settings/RegistrySettings.h"

#include <string>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

std::string lineText(const TraceLine& line) {
    return VisibleText(line.module) + ", " + VisibleText(line.procedure) + " " + VisibleText(line.arguments);
}

/// Number, description, procedure and the procedures that led to it, innermost last.
std::string reportText(const ErrorReport& report) {
    std::string text = "Error " + std::to_string(report.error.number()) + ": " +
                       VisibleText(report.error.description()) + kLogLineEnd + "In " +
                       lineText(report.procedure) + kLogLineEnd;
    if (!report.stack.empty())
        text += std::string("Running procedures:") + kLogLineEnd;
    for (const TraceLine& line : report.stack)
        text += "    " + lineText(line) + kLogLineEnd;
    return text;
}

bool operatorWantsReports() {
    try {
        return TextToBoolean(
            ReadSetting(std::string(kVistrel3), std::string(kSettingsSection), "ShowErrorReports", "True"));
    } catch (const RuntimeError&) {
        return true;
    }
}

void showToOperator(const std::string& text) {
    const Message message{text, "Vistrel Error Report", MessageIcon::critical, MessageButtons::ok};
    if (MessageBoxes& boxes = OperatorBoxes(); boxes.attended())
        boxes.show(message);
    else
        (void)platform().console().write(StandardStream::error, text);
}

/// Guards a step of a report against running again on the same thread before it has ended.
class ReentryGuard {
public:
    explicit ReentryGuard(bool& isRunning)
        : isRunning_(isRunning), isFirst_(!std::exchange(isRunning, true)) {}
    ~ReentryGuard() {
        if (isFirst_)
            isRunning_ = false;
    }
    ReentryGuard(const ReentryGuard&) = delete;
    ReentryGuard& operator=(const ReentryGuard&) = delete;
    bool isFirst() const { return isFirst_; }

private:
    bool& isRunning_;
    bool isFirst_;
};

constinit thread_local bool inLog = false;
constinit thread_local bool inMessage = false;

} // namespace

void DefaultErrorReporter::report(const ErrorReport& report) {
    const std::string text = reportText(report);
    {
        const ReentryGuard guard(inLog);
        if (!guard.isFirst())
            return; // writing the log caused this error
        const bool isLogged = AppendToErrorLog(text);
        const bool isUnattended = IsUnattended();
        const bool isOnlyToBeLogged = report.error.isQuiet() || !operatorWantsReports() ||
                                      (isUnattended && platform().messageBoxes().attended());
        if (isOnlyToBeLogged && (isLogged || !isUnattended))
            return;
    }
    // While a message is open, the host may go on and fail again. Such errors are logged, but not shown in a
    // second message.
    if (const ReentryGuard guard(inMessage); guard.isFirst())
        showToOperator(text);
}

ErrorReporter& defaultErrorReporter() {
    static DefaultErrorReporter reporter;
    return reporter;
}

} // namespace qrtVistrelClasses4
