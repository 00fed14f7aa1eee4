// Saving a playfile, with the answer to the question that it may ask.
#pragma once

#include "tools/program/Answers.h"
#include "tools/program/Commands.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <string>

namespace qrtVistrelClasses4 {

/// Saves an opened playfile as the file `to`, and adds what a playfile of the older format loses to the
/// session's errors. Returns false, and adds the reason instead, if it cannot be saved.
bool SaveOpened(const LoadOutcome& opened, const std::string& to, const AnswerOptions& options,
                Session& session);

} // namespace qrtVistrelClasses4
