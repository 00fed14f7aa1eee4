// Opening a playfile, with the question that one of the older format asks.
#pragma once

#include "playfile/FrameInfoClass.h"
#include "playfile/LoadPlayfile.h"
#include "tools/program/Answers.h"
#include "tools/program/ErrorLines.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {

inline constexpr std::string_view kNoLegacyMark =
    "not a playfile of the older format (PL2): it does not start with \"PLWREV 1.50\"";

/// Reads the file `name`. What is wrong with it goes to `errors`, which are about the file afterwards.
/// Returns nothing if it could not be read to its end, or if it is of the older format and the answer is no.
/// Frames of the older format that could not be read are errors, too, but the others are returned.
std::optional<LoadOutcome> OpenPlayfile(const std::string& name, const AnswerOptions& options,
                                        ErrorLines& errors);

/// The same, but a current playfile is returned even if it could not be read to its end, with the frames that
/// could.
std::optional<LoadOutcome> OpenWholeFrames(const std::string& name, const AnswerOptions& options,
                                           ErrorLines& errors);

/// `OpenPlayfile` into `playfile`, which stays as it was if the result is false.
inline bool OpenPlayfile(FrameInfoClass& playfile, const std::string& name, const AnswerOptions& options,
                         ErrorLines& errors) {
    std::optional<LoadOutcome> opened = OpenPlayfile(name, options, errors);
    if (opened)
        playfile.Adopt(std::move(opened->playfile));
    return opened.has_value();
}

} // namespace qrtVistrelClasses4
