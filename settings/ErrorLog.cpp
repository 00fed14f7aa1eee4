#include "settings/ErrorLog.h"

#include "platform/Hex.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <mutex>
#include <optional>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

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

/// Appends to the log in `folder`. False if it cannot be written.
bool append(const std::string& folder, const std::string& entry) {
    FileSystem& files = platform().files();
    const std::string log = JoinPath(folder, kErrorLogName);
    if (const auto size = files.sizeOf(log); size && size.value() > kErrorLogLimitBytes)
        (void)files.moveOver(log, JoinPath(folder, kOldErrorLogName)); // refused: the log goes on growing
    const auto file = files.open(log, OpenMode::append);
    if (!file)
        return false;
    const bool isWritten = file.value()->write(entry) == SystemError::none;
    return file.value()->close() == SystemError::none && isWritten;
}

/// The same for the usual folder. Settings that cannot be read may hide where it is.
bool appendInUsualFolder(const std::string& entry) {
    try {
        return append(ErrorLogFolder(), entry);
    } catch (const RuntimeError&) {
        return false;
    }
}

bool appendInLocalData(const std::string& entry) {
    const std::optional<std::string> data = platform().specialFolder(kLocalDataFolder);
    if (!data)
        return false;
    const std::string folder = JoinPath(*data, "qrtVistrelClasses4");
    (void)platform().files().createFolder(folder); // it may be there
    return append(folder, entry);
}

} // namespace

std::string VisibleText(std::string_view text) {
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

std::string ErrorLogFolder() {
    std::optional<std::string> folder = platform().logFolder();
    return folder ? *std::move(folder) : GetAppFolder();
}

bool AppendToErrorLog(const std::string& text) {
    const std::string entry = timeText(platform().localTime()) + "  " + text;
    static std::mutex mutex; // two threads must not both move the old log away
    const std::lock_guard lock(mutex);
    return appendInUsualFolder(entry) || appendInLocalData(entry);
}

} // namespace qrtVistrelClasses4
