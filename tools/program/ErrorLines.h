// What went wrong, one line each, for a person.
#pragma once

#include "frame/ErrorTrap.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qrtVistrelClasses4 {

/// Errors beyond so many are only counted.
inline constexpr std::size_t kMostErrorLines = 500;

/// Keeps errors until the program has shown what it has to show.
class ErrorLines final : public ErrorReporter {
public:
    /// What the errors that follow are about: a file name, say, or a setting.
    void about(std::string_view subject) { subject_ = subject; }

    /// Told once, however often it is added.
    void add(std::string_view text);
    /// An error of the library's. Quiet ones are passed over.
    void add(const RuntimeError& error);
    /// An error that the library has trapped.
    void report(const ErrorReport& report) override { add(report.error); }

    bool empty() const { return lines_.empty(); }
    /// Grows with every error that has not been told; beyond `kMostErrorLines` with every one that is added.
    std::size_t count() const { return lines_.size() + notKept_; }
    /// The last one tells of those that have not been kept.
    std::vector<std::string> lines() const;

private:
    std::string subject_;
    std::vector<std::string> lines_;
    std::unordered_set<std::string> told_; ///< The same lines.
    std::size_t notKept_ = 0;
};

/// Reports quiet errors, too, as lines: where the library goes on without a word, the program's user wants to
/// know.
class EveryErrorReporter final : public ErrorReporter {
public:
    /// `errors` must outlive the reporter.
    explicit EveryErrorReporter(ErrorLines& errors) : errors_(errors) {}
    void report(const ErrorReport& report) override {
        errors_.add(RuntimeError(report.error.number(), report.error.description()));
    }

private:
    ErrorLines& errors_;
};

} // namespace qrtVistrelClasses4
