// What went wrong, one line each, for a person.
#pragma once

#include "frame/ErrorTrap.h"

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Keeps errors until the program has shown what it has to show.
class ErrorLines final : public ErrorReporter {
public:
    /// What the errors that follow are about: a file name, say, or a setting.
    void about(std::string_view subject) { subject_ = subject; }

    void add(std::string_view text);
    /// An error of the library's. Quiet ones are passed over.
    void add(const RuntimeError& error);
    /// An error that the library has trapped.
    void report(const ErrorReport& report) override { add(report.error); }

    bool empty() const { return lines_.empty(); }
    const std::vector<std::string>& lines() const { return lines_; }

private:
    std::string subject_;
    std::vector<std::string> lines_;
};

} // namespace qrtVistrelClasses4
