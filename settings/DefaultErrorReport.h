// What happens to trapped errors unless the host says otherwise: a line in the log, and a message to the
// operator.
#pragma once

#include <qrtVistrelClasses4/ErrorReporter.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Name of the log in the application data folder, and its name once it has grown past its limit.
inline constexpr std::string_view kErrorLogName = "VistrelErrors.log";
inline constexpr std::string_view kOldErrorLogName = "VistrelErrors.old.log";
inline constexpr std::uint64_t kErrorLogLimitBytes = 1 << 20;

/// The most characters of one text that a report shows: enough for the keys of all preferences.
inline constexpr std::size_t kLongestTextInReport = 700;

/// Appends every report to the log. Shows it in a critical message box, unless the error is quiet or the
/// setting "Vistrel3" / "Settings" / "ShowErrorReports" is false; if nobody can see a box, the report goes to
/// standard error instead. The name of a procedure, all its arguments together and the text of an error are
/// each cut after `kLongestTextInReport` characters and then end in "..."; control characters show their
/// codes ("<0D>").
class DefaultErrorReporter : public ErrorReporter {
public:
    void report(const ErrorReport& report) override;
};

} // namespace qrtVistrelClasses4
