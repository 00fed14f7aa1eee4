// What went wrong, one line each, for a person.
#pragma once

#include "frame/ErrorTrap.h"
#include "tools/program/FileFault.h"
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

/// Number of an error that this program has found itself, and whose description is all there is to say.
inline constexpr int kNoErrorNumber = 0;

/// The error as a sentence: "the disk is full". It ends in the number of an error that is rare, or that has a
/// description of its own.
std::string TextOf(const RuntimeError& error);

/// Keeps errors until the program has shown what it has to show.
class ErrorLines final : public ErrorReporter {
public:
    /// Sets what the following errors are about, for example a file name or a setting.
    void about(std::string_view subject) {
        subject_ = subject;
        isFile_ = false;
    }
    /// The same for the file `path`. Errors then say what `path` really is.
    void aboutFile(std::string_view path) {
        subject_ = path;
        isFile_ = true;
    }

    /// A text that is added several times is kept once.
    void add(std::string_view text) { add(subject_, text); }
    /// The same for something that was lost on the way. All of it is shown: it is never more than the file
    /// that was read.
    void addLoss(std::string_view text) { keep(lineOf(subject_, text)); }
    /// An error of the library. Quiet errors are left out.
    void add(const RuntimeError& error);
    /// The same for the error that something ended with, for example "not saved".
    void add(const std::string& failure, const RuntimeError& error);
    /// What is wrong with the file that errors are about.
    void add(const FileFault& fault);
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
    FileFault faultOf(const RuntimeError& error) const;
    void add(const std::string& subject, std::string_view text);
    void addLine(std::string line);
    void keep(std::string line);

    std::string subject_;
    bool isFile_ = false; ///< Whether the subject is the name of a file.
    std::vector<std::string> lines_;
    std::unordered_set<std::string> kept_; ///< The same lines.
    std::size_t count_ = 0;
    std::size_t keptErrors_ = 0; ///< Lines without losses.
    std::size_t notKept_ = 0;
};

} // namespace qrtVistrelClasses4
