// Saving a playfile, with the answer to the question that it may ask.
#pragma once

#include "playfile/FrameInfoClass.h"
#include "tools/Commands.h"

#include <string>

namespace qrtVistrelClasses4 {

/// Whether questions are answered beforehand. With neither they are asked.
struct AnswerOptions {
    bool yes = false;
    bool no = false;
};

void AddAnswerOptions(CLI::App& command, AnswerOptions& options);

/// Saves `playfile` as the file `to`; a failure goes to the session's errors.
ExitCode SavePlayfile(FrameInfoClass& playfile, const std::string& to, const AnswerOptions& options,
                      Session& session);

} // namespace qrtVistrelClasses4
