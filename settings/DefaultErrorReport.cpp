#include "settings/DefaultErrorReport.h"

#include "frame/Conversions.h"
#include "platform/Hex.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"

#include <mutex>
#include <string>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kLineEnd = "\r\n";

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string timeText(const LocalTime& time) {
    return std::to_string(time.year) + '-' + twoDigits(time.month) + '-' + twoDigits(time.day) + ' ' +
           twoDigits(time.hour) + ':' + twoDigits(time.minute) + ':' + twoDigits(time.second);
}

/// Whether a character controls a terminal, alone or, in UTF-8, together with `previous` before it.
bool isControl(unsigned char previous, unsigned char code) {
    constexpr unsigned char openingOfUtf8Controls = 0xc2;
    return code < ' ' || code == 0x7f || (previous == openingOfUtf8Controls && code >= 0x80 && code <= 0x9f);
}

/// Any text in a form that is safe in a line of a log, in a box and on a terminal.
std::string visible(std::string_view text) {
    std::string result;
    unsigned char previous = 0;
    for (const char character : text.substr(0, kLongestTextInReport)) {
        const auto code = static_cast<unsigned char>(character);
        if (isControl(previous, code)) {
            AppendHex(result += '<', code);
            result += '>';
        } else {
            result += character;
        }
        previous = code;
    }
    return text.size() > kLongestTextInReport ? result + "..." : result;
}

std::string lineText(const TraceLine& line) {
    return visible(line.module) + ", " + visible(line.procedure) + " " + visible(line.arguments);
}

/// Number, description, procedure and the procedures that led to it, innermost last.
std::string reportText(const ErrorReport& report) {
    std::string text = "Error " + std::to_string(report.error.number()) + ": " +
                       visible(report.error.description()) + kLineEnd + "In " + lineText(report.procedure) +
                       kLineEnd;
    if (!report.stack.empty())
        text += std::string("Running procedures:") + kLineEnd;
    for (const TraceLine& line : report.stack)
        text += "    " + lineText(line) + kLineEnd;
    return text;
}

void appendToLog(const std::string& text) {
    FileSystem& files = platform().files();
    const std::string folder = GetAppFolder();
    const std::string log = JoinPath(folder, kErrorLogName);
    static std::mutex mutex; // two threads must not both move the old log away
    const std::lock_guard lock(mutex);
    if (const auto size = files.sizeOf(log); size && size.value() > kErrorLogLimitBytes)
        (void)files.moveOver(log, JoinPath(folder, kOldErrorLogName)); // refused: the log goes on growing
    if (auto file = files.open(log, OpenMode::append)) {
        (void)file.value()->write(text); // a log that cannot be written must not make another error
        (void)file.value()->close();
    }
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
    if (messageBoxes().attended())
        showMessage({text, "Vistrel Error Report", MessageIcon::critical, MessageButtons::ok});
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
        appendToLog(timeText(platform().localTime()) + "  " + text);
        if (report.error.isQuiet() || !operatorWantsReports())
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
