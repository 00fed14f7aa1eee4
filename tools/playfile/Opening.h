// Opening a playfile, with the question that one of the older format asks.
#pragma once

#include "tools/program/Answers.h"
#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// What is wrong with the file `name` if it lacks the mark of the older format.
FileFault FaultWithoutLegacyMark(const std::string& name);

/// Reads the file `name`, or standard input. Adds what is wrong with it to `errors`, whose subject is the
/// file from then on. Returns nothing if it could not be read to its end, or if it is of the older format and
/// the answer is no. Frames of the older format that could not be read are errors, too, but the other frames
/// are returned.
std::optional<LoadOutcome> OpenPlayfile(const std::string& name, const AnswerOptions& options,
                                        ErrorLines& errors, const LoadCircumstances& circumstances = {});

/// The same, but a current playfile is returned even if it could not be read to its end, with the frames that
/// could.
std::optional<LoadOutcome> OpenWholeFrames(const std::string& name, const AnswerOptions& options,
                                           ErrorLines& errors, const LoadCircumstances& circumstances = {});

/// The same for a command that examines playfiles: one of either format that could not be read to its end is
/// returned, and that is no error here.
std::optional<LoadOutcome> OpenToExamine(const std::string& name, const AnswerOptions& options,
                                         ErrorLines& errors, const LoadCircumstances& circumstances = {});

/// Adds why a playfile was not read to its end. Adds nothing if it was.
void AddWhatIsMissing(const LoadOutcome& outcome, ErrorLines& errors);

/// Adds what the frames `first` to `last` of a playfile of the older format have lost to `errors`, whose
/// subject is the playfile from then on. A command calls this once it has something to show or to save.
void AddLosses(const LoadOutcome& opened, ErrorLines& errors, std::int32_t first = 1,
               std::int32_t last = std::numeric_limits<std::int32_t>::max());

} // namespace qrtVistrelClasses4
