// Saving a playfile, with the answer to the question that it may ask.
#pragma once

#include "tools/program/Answers.h"
#include "tools/program/Commands.h"
#include "tools/program/Outputs.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <string>

namespace qrtVistrelClasses4 {

struct SavingOptions {
    AnswerOptions answers;
    bool keepPaths = false;
    bool keepsCopy = false; ///< The file before is kept in a copy beside it.
};

/// Adds "--keep-paths", "--yes" and "--no".
void AddSavingOptions(CLI::App& command, SavingOptions& options);

/// False, after adding an error, if "--out" is not a pattern for playfiles.
bool IsOutForPlayfiles(const OutputOptions& output, ErrorLines& errors);

/// Opens a playfile that is to be saved. A dry run asks nothing, since it saves nothing.
std::optional<LoadOutcome> OpenToSave(const std::string& name, const SavingOptions& options,
                                      const OutputOptions& output, ErrorLines& errors);

/// Adds "--backup".
void AddBackupOption(CLI::App& command, SavingOptions& options);

/// Call this before an opened playfile is saved as `to` with `SaveNow`. Returns an exit code if it is not to
/// be saved, as `Outputs::codeInsteadOf` does. In a dry run, what a playfile of the older format would lose
/// is added to the session's errors.
std::optional<ExitCode> CodeInsteadOfSaving(const LoadOutcome& opened, const std::string& to,
                                            Outputs& outputs, Session& session,
                                            const std::string& notDone = "not saved");

/// Saves an opened playfile as the file `to`, or on standard output for "-". Remarks which references have
/// changed, and adds what a playfile of the older format loses to the session's errors.
ExitCode SaveNow(const LoadOutcome& opened, const std::string& to, const SavingOptions& options,
                 Outputs& outputs, Session& session, const std::string& notDone = "not saved");

/// Does both.
/// `notDone` begins the reason if it cannot be saved.
ExitCode SaveOpened(const LoadOutcome& opened, const std::string& to, const SavingOptions& options,
                    Outputs& outputs, Session& session, const std::string& notDone = "not saved");

} // namespace qrtVistrelClasses4
