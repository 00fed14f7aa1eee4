// The log of trapped errors, and of messages that nobody is there to see.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The folder that has the log. An error on the way to it is trapped.
std::string ErrorLogFolder();

/// Name of the log, and its name once it has grown past its limit.
inline constexpr std::string_view kErrorLogName = "VistrelErrors.log";
inline constexpr std::string_view kOldErrorLogName = "VistrelErrors.old.log";
inline constexpr std::uint64_t kErrorLogLimitBytes = 1 << 20;

/// The most characters of one text that a report shows: enough for the keys of all preferences.
inline constexpr std::size_t kLongestTextInReport = 700;

inline constexpr const char* kLogLineEnd = "\r\n";

/// Any text in a form that is safe in a line of the log, in a box and on a terminal.
std::string VisibleText(std::string_view text);

/// Appends the time and `text`, which consists of whole lines, to the log. If that cannot be written, as
/// where only administrators may write, the log in the user's local application data takes its place, on
/// systems that have such a folder. False if neither can be written.
bool AppendToErrorLog(const std::string& text);

} // namespace qrtVistrelClasses4
