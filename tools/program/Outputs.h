// The files that a command writes, and what it remarks about them.
#pragma once

#include "platform/ReplacementFile.h"
#include "tools/program/Commands.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qrtVistrelClasses4 {

struct OutputOptions {
    std::string out; ///< As typed: a pattern, "-", or empty.
    bool force = false;
    bool noClobber = false;
    bool dryRun = false;
    bool quiet = false;
};

/// What happens to a file that exists already, unless an option says otherwise.
enum class ExistingFiles {
    replaced,
    replacedIfAlike, ///< The command itself refuses to replace a file of another kind.
    kept
};

/// Adds "--force", "--no-clobber", "--dry-run" and "--quiet".
void AddOutputOptions(CLI::App& command, OutputOptions& options, ExistingFiles existing);
/// Adds "--out" with a description of what is written.
CLI::Option* AddOutOption(CLI::App& command, OutputOptions& options, const std::string& description);

/// "%f" in a pattern of "--out" is the name of the file that is read, without folder and ending; "%n" is
/// the number of a frame; "%%" is "%".
bool HasPlaceholder(std::string_view pattern, char letter);
std::string NameFromPattern(std::string_view pattern, const std::string& input, std::int32_t frame = 0);

/// The part of the name from its last dot, in small letters; empty if there is none.
std::string EndingOf(std::string_view path);
/// The name without folder and ending.
std::string StemOf(std::string_view path);

/// What a file is called in messages.
std::string OutputName(const std::string& path);
/// Makes the file the subject of the following errors.
void AboutOutput(ErrorLines& errors, const std::string& path);

/// False, after adding an error, if a pattern has "%" in front of something else than "f", "n" or "%". If
/// `withoutFrame` is not empty, it is what the pattern names, such as "a sheet", and "%n" is an error, too.
bool HasKnownPlaceholders(std::string_view pattern, const std::string& withoutFrame, ErrorLines& errors);

/// False, after adding an error, if `path` is not standard output and has none of the endings.
bool HasEnding(const std::string& path, std::initializer_list<std::string_view> endings, ErrorLines& errors);
/// False, after adding an error, if `path` has an ending of files that are no playfiles, such as pictures and
/// documents. Playfiles may have any other ending, or none.
bool MayNamePlayfile(const std::string& path, ErrorLines& errors);
/// False, after adding an error, if "--out" names one file for several playfiles.
bool NamesEachFile(const OutputOptions& options, bool areSeveral, ErrorLines& errors);

/// A file, which is replaced when it is complete, or standard output.
class OutputTarget final : public ByteSink {
public:
    OutputTarget(const std::string& path, std::ostream& out);

    SystemError error() const { return file_ ? file_->error() : SystemError::none; }
    SystemError write(std::string_view bytes) override;
    SystemError commit() { return file_ ? file_->commit() : SystemError::none; }

private:
    std::optional<ReplacementFile> file_;
    std::ostream& out_;
};

/// The files that one run of a command writes.
class Outputs {
public:
    Outputs(const OutputOptions& options, ExistingFiles existing, Session& session)
        : options_(options), session_(session),
          replaces_(options.force || (existing != ExistingFiles::kept && !options.noClobber)) {}

    /// Call this before `path` is written. Returns an exit code if it is not to be written: `failed` after
    /// adding the reason, which begins with `notDone`, to the errors; `done` in a dry run, which prints the
    /// name. No run writes a file twice, or two files whose names differ in case only: elsewhere they would
    /// be one file.
    std::optional<ExitCode> codeInsteadOf(const std::string& path,
                                          const std::string& notDone = "not written");

    /// Makes the missing folders of files that are written from now on.
    void makeFolders() { makesFolders_ = true; }

    /// From now on, `codeInsteadOf` also fails if the system would not let the file be written. For commands
    /// that write all of their files or none.
    void lookAhead() { looksAhead_ = true; }

    /// Whether only errors are to be printed.
    bool isQuiet() const { return options_.quiet; }
    /// Prints a line, unless the command is quiet or has written nothing in a dry run. It goes to standard
    /// error if a file goes to standard output.
    void remark(const std::string& line) const;
    /// The same in a dry run, too.
    void print(const std::string& line) const;

private:
    std::string refusal(const std::string& path);

    const OutputOptions& options_;
    Session& session_;
    bool replaces_;
    bool makesFolders_ = false;
    bool looksAhead_ = false;
    std::unordered_map<std::string, std::string> names_; ///< Of this run, by `FoldedName` of the file.
};

} // namespace qrtVistrelClasses4
