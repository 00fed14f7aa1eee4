// Opening a playfile, with the question that one of the older format asks.
#pragma once

#include "playfile/FrameInfoClass.h"
#include "tools/program/Answers.h"
#include "tools/program/ErrorLines.h"

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

inline constexpr std::string_view kNoLegacyMark =
    "not a playfile of the older format (PL2): it does not start with \"PLWREV 1.50\"";

/// Opens the file `name`; a failure goes to `errors`, which are about the file then. So do frames of the
/// older format that could not be read, although the others are there and the result is true.
bool OpenPlayfile(FrameInfoClass& playfile, const std::string& name, const AnswerOptions& options,
                  ErrorLines& errors);

} // namespace qrtVistrelClasses4
