// What went wrong, one line each, for a person.
#pragma once

#include "frame/ErrorTrap.h"
#include <qrtVistrelClasses4/PreferencesFile.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qrtVistrelClasses4 {

/// Errors beyond this number are only counted.
inline constexpr std::size_t kMostErrorLines = 500;

/// "Overflow (error 6)".
std::string TextOf(const RuntimeError& error);

/// Keeps errors until the program has shown what it has to show.
class ErrorLines final : public ErrorReporter {
public:
    /// Sets what the following errors are about, for example a file name or a setting.
    void about(std::string_view subject) { subject_ = subject; }

    /// A text that is added several times is kept once.
    void add(std::string_view text) {
        hasErrors_ = true;
        keep(subject_, text);
    }
    /// The same for something that was lost on the way. It does not keep a command from saving, but the
    /// command has failed in the end.
    void addLoss(std::string_view text) { keep(subject_, text); }
    /// An error of the library. Quiet errors are left out.
    void add(const RuntimeError& error);
    /// An error in a file, with its line.
    void add(const FileError& error);
    /// Values of preferences that do not convert, whatever other errors are about.
    void add(const std::vector<PreferenceError>& errors);
    /// An error that the library has trapped.
    void report(const ErrorReport& report) override { add(report.error); }

    bool empty() const { return lines_.empty(); }
    bool hasOnlyLosses() const { return !hasErrors_; }
    /// The last line counts the errors that were not kept.
    std::vector<std::string> lines() const;

private:
    void keep(const std::string& subject, std::string_view text);

    std::string subject_;
    std::vector<std::string> lines_;
    std::unordered_set<std::string> kept_; ///< The same lines.
    std::size_t notKept_ = 0;
    bool hasErrors_ = false; ///< Besides losses.
};

} // namespace qrtVistrelClasses4
