#include "tools/playfile/Opening.h"

#include "playfile/LegacyFormat.h"
#include "playfile/OperatorQuestions.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"

namespace qrtVistrelClasses4 {
namespace {

void addMissingFrames(const LoadOutcome& outcome, ErrorLines& errors) {
    if (outcome.framesRead < outcome.framesAnnounced)
        errors.add("only the first " + std::to_string(outcome.framesRead) + " of " +
                   std::to_string(outcome.framesAnnounced) + " frames could be read");
}

/// Why a current playfile was not read to its end.
FileFault faultOf(const LoadOutcome& outcome, const FileError& error) {
    using enum ErrorNumber;
    if (error.line != 1U)
        return FaultOf(error, " (frame " + std::to_string(outcome.framesRead + 1) + " of " +
                                  std::to_string(outcome.framesAnnounced) + ")");
    const auto number = static_cast<ErrorNumber>(error.error.number());
    const std::string why = number == inputPastEnd   ? "it is empty"
                            : number == typeMismatch ? "line 1 is not a number of frames"
                                                     : "line 1 is not a possible number of frames";
    return {"is not a playfile: " + why + NoteOfKind(outcome.playfile.fileName), true};
}

void addError(const LoadOutcome& outcome, ErrorLines& errors) {
    if (!outcome.error)
        return;
    if (outcome.error->line)
        errors.add(faultOf(outcome, *outcome.error));
    else
        errors.add(outcome.error->error);
}

/// Whether to go on with a playfile of the older format.
bool goesOn(const LoadOutcome& outcome, const AnswerOptions& options, ErrorLines& errors) {
    errors.add(outcome.legacy->preferenceErrors);
    if (!outcome.legacy->hasMark) {
        errors.add(FaultWithoutLegacyMark(outcome.playfile.fileName));
        return false;
    }
    const bool isWanted = Answer(options, AskWhetherToOpenLegacyPlayfile);
    if (!isWanted)
        errors.add("not opened: it is of the older format (PL2), and the question whether to go on was "
                   "answered with no; --yes answers it with yes");
    return isWanted;
}

LoadOutcome load(const std::string& name, const LoadCircumstances& circumstances, ErrorLines& errors) {
    AboutInput(errors, name);
    return name == kStandardStream ? LoadPlayfileBytes(ReadStandardInput(), InputName(name), circumstances)
                                   : LoadPlayfile(name, circumstances);
}

std::optional<LoadOutcome> open(const std::string& name, const AnswerOptions& options, ErrorLines& errors,
                                const LoadCircumstances& circumstances = {}) {
    LoadOutcome outcome = load(name, circumstances, errors);
    if (outcome.playfile.isLegacy && !outcome.error && !goesOn(outcome, options, errors))
        return std::nullopt;
    AddWhatIsMissing(outcome, errors);
    return outcome.playfile.isLegacy && outcome.error ? std::nullopt : std::optional(std::move(outcome));
}

} // namespace

FileFault FaultWithoutLegacyMark(const std::string& name) {
    return {"is not a playfile of the older format (PL2): it does not start with \"" +
                std::string(kLegacyMark) + "\"" + NoteOfKind(name),
            true};
}

void AddWhatIsMissing(const LoadOutcome& outcome, ErrorLines& errors) {
    addError(outcome, errors);
    if (!outcome.playfile.isLegacy || outcome.error)
        return;
    addMissingFrames(outcome, errors);
    if (const std::uint64_t count = outcome.legacy->bytesAfterRecords; count > 0)
        errors.add("the last " + std::to_string(count) + " bytes are not a whole frame");
}

std::optional<LoadOutcome> OpenPlayfile(const std::string& name, const AnswerOptions& options,
                                        ErrorLines& errors, const LoadCircumstances& circumstances) {
    std::optional<LoadOutcome> outcome = open(name, options, errors, circumstances);
    if (outcome && outcome->error)
        outcome.reset();
    return outcome;
}

std::optional<LoadOutcome> OpenWholeFrames(const std::string& name, const AnswerOptions& options,
                                           ErrorLines& errors, const LoadCircumstances& circumstances) {
    return open(name, options, errors, circumstances);
}

std::optional<LoadOutcome> OpenToExamine(const std::string& name, const AnswerOptions& options,
                                         ErrorLines& errors, const LoadCircumstances& circumstances) {
    LoadOutcome outcome = load(name, circumstances, errors);
    const bool isPlayfile =
        !outcome.error || (!outcome.playfile.isLegacy && outcome.error->line.value_or(1) > 1);
    if (!isPlayfile)
        addError(outcome, errors);
    return isPlayfile && (!outcome.playfile.isLegacy || goesOn(outcome, options, errors))
               ? std::optional(std::move(outcome))
               : std::nullopt;
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
