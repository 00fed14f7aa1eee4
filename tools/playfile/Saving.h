// Saving a playfile, with the answer to the question that it may ask.
#pragma once

#include "playfile/FrameInfoClass.h"
#include "tools/program/Answers.h"
#include "tools/program/Commands.h"

#include <string>

namespace qrtVistrelClasses4 {

/// Saves `playfile` as the file `to`; a failure goes to the session's errors. What one of the older format
/// loses by it is printed.
ExitCode SavePlayfile(FrameInfoClass& playfile, const std::string& to, const AnswerOptions& options,
                      Session& session);

} // namespace qrtVistrelClasses4
