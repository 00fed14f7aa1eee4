// What happens to trapped errors unless the host says otherwise: a line in the log, and a message to the
// operator.
#pragma once

#include "frame/ErrorReporter.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Name of the log in the application data folder, and what it is called once it has grown past its limit.
inline constexpr std::string_view kErrorLogName = "VistrelErrors.log";
inline constexpr std::string_view kOldErrorLogName = "VistrelErrors.old.log";
inline constexpr std::uint64_t kErrorLogLimitBytes = 1 << 20;

/// Characters that a report shows of one text: those of a path of the usual greatest length, and its name.
inline constexpr std::size_t kLongestTextInReport = 300;

/// Appends every report to the log. Shows it in a critical message box, unless the error is quiet or the
/// setting "Vistrel3" / "Settings" / "ShowErrorReports" is false; where nobody could see a box it goes to
/// standard error. Texts of a procedure, its arguments together, and of an error are cut behind
/// `kLongestTextInReport` characters and marked by "..."; control characters show their codes ("<0D>").
class DefaultErrorReporter : public ErrorReporter {
public:
    void report(const ErrorReport& report) override;
};

} // namespace qrtVistrelClasses4
