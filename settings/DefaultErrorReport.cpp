#include "settings/DefaultErrorReport.h"

#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"

#include <cstdio>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kLineEnd = "\r\n";

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string timeText(const LocalTime& time) {
    return std::to_string(time.year) + '-' + twoDigits(time.month) + '-' + twoDigits(time.day) + ' ' +
           twoDigits(time.hour) + ':' + twoDigits(time.minute) + ':' + twoDigits(time.second);
}

std::string lineText(const TraceLine& line) {
    return line.module + ", " + line.procedure + " " + line.arguments;
}

/// Number, description, procedure and the procedures that led to it, innermost last.
std::string reportText(const ErrorReport& report) {
    std::string text = "Error " + std::to_string(report.error.number()) + ": " + report.error.description() +
                       kLineEnd + "In " + lineText(report.procedure) + kLineEnd;
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
    if (const auto size = files.sizeOf(log); size && size.value > kErrorLogLimitBytes)
        (void)files.moveOver(log, JoinPath(folder, kOldErrorLogName)); // refused: the log goes on growing
    if (auto file = files.open(log, OpenMode::append)) {
        (void)file.value->write(text); // a log that cannot be written must not make another error
        (void)file.value->close();
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
        std::fputs(text.c_str(), stderr);
}

/// True while a report is being made: errors of its own making are dropped.
constinit thread_local bool reporting = false;
struct ReportingScope {
    ReportingScope() { reporting = true; }
    ~ReportingScope() { reporting = false; }
    ReportingScope(const ReportingScope&) = delete;
    ReportingScope& operator=(const ReportingScope&) = delete;
};

} // namespace

void DefaultErrorReporter::report(const ErrorReport& report) {
    if (reporting)
        return;
    const ReportingScope scope;
    const std::string text = reportText(report);
    appendToLog(timeText(platform().localTime()) + "  " + text);
    if (!report.error.isQuiet() && operatorWantsReports())
        showToOperator(text);
}

ErrorReporter& defaultErrorReporter() {
    static DefaultErrorReporter reporter;
    return reporter;
}

} // namespace qrtVistrelClasses4
