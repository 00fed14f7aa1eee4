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
    void add(std::string_view text) { add(subject_, text); }
    /// The same for something that was lost on the way. All of it is shown: it is never more than the file
    /// that was read.
    void addLoss(std::string_view text) { keep(lineOf(subject_, text)); }
    /// An error of the library. Quiet errors are left out.
    void add(const RuntimeError& error);
    /// An error in a file, with its line.
    void add(const FileError& error);
    /// Values of preferences that do not convert, whatever other errors are about.
    void add(const std::vector<PreferenceError>& errors);
    /// An error that the library has trapped.
    void report(const ErrorReport& report) override { add(report.error); }

    bool empty() const { return lines_.empty(); }
    /// The number of errors so far, without losses.
    std::size_t count() const { return count_; }
    /// The last line counts the errors that were not kept.
    std::vector<std::string> lines() const;

private:
    static std::string lineOf(const std::string& subject, std::string_view text);
    void add(const std::string& subject, std::string_view text);
    void keep(std::string line);

    std::string subject_;
    std::vector<std::string> lines_;
    std::unordered_set<std::string> kept_; ///< The same lines.
    std::size_t count_ = 0;
    std::size_t keptErrors_ = 0; ///< Lines without losses.
    std::size_t notKept_ = 0;
};

} // namespace qrtVistrelClasses4
