#include "tools/playfile/Opening.h"

#include "playfile/OperatorQuestions.h"
#include "tools/program/Encoding.h"

namespace qrtVistrelClasses4 {
namespace {

void addMissingFrames(const LoadOutcome& outcome, ErrorLines& errors) {
    if (outcome.framesRead < outcome.framesAnnounced)
        errors.add("only the first " + std::to_string(outcome.framesRead) + " of " +
                   std::to_string(outcome.framesAnnounced) + " frames could be read");
}

/// Whether to go on with a playfile of the older format.
bool goesOn(const LoadOutcome& outcome, const AnswerOptions& options, ErrorLines& errors) {
    if (outcome.error)
        return false;
    errors.add(outcome.legacy->preferenceErrors);
    if (!outcome.legacy->hasMark) {
        errors.add(kNoLegacyMark);
        return false;
    }
    if (!Answer(options, AskWhetherToOpenLegacyPlayfile)) {
        errors.add("not opened: it is of the older format (PL2), and the question whether to go on was "
                   "answered with no; --yes answers it with yes");
        return false;
    }
    addMissingFrames(outcome, errors);
    if (const std::uint64_t count = outcome.legacy->bytesAfterRecords; count > 0)
        errors.add("the last " + std::to_string(count) + " bytes are not a whole frame");
    return true;
}

std::optional<LoadOutcome> open(const std::string& name, const AnswerOptions& options, ErrorLines& errors) {
    errors.about(name);
    LoadOutcome outcome = LoadPlayfile(name);
    if (outcome.error)
        errors.add(*outcome.error);
    if (outcome.playfile.isLegacy && !goesOn(outcome, options, errors))
        return std::nullopt;
    return outcome;
}

} // namespace

std::optional<LoadOutcome> OpenPlayfile(const std::string& name, const AnswerOptions& options,
                                        ErrorLines& errors) {
    std::optional<LoadOutcome> outcome = open(name, options, errors);
    if (outcome && outcome->error)
        outcome.reset();
    return outcome;
}

std::optional<LoadOutcome> OpenWholeFrames(const std::string& name, const AnswerOptions& options,
                                           ErrorLines& errors) {
    std::optional<LoadOutcome> outcome = open(name, options, errors);
    if (outcome && outcome->error)
        addMissingFrames(*outcome, errors);
    return outcome;
}

void AddLosses(const LoadOutcome& opened, ErrorLines& errors, std::int32_t first, std::int32_t last) {
    errors.about(opened.playfile.fileName);
    if (!opened.legacy)
        return;
    for (const auto& [frame, text] : opened.legacy->losses)
        if (frame >= first && frame <= last)
            errors.addLoss("frame " + std::to_string(frame) + ": not carried over: " + Utf8FromAnsi(text));
}

} // namespace qrtVistrelClasses4
