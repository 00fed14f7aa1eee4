#include "tools/playfile/Saving.h"

#include "frame/SystemErrors.h"
#include "platform/KeptCopies.h"
#include "platform/Platform.h"
#include "playfile/LegacyFormat.h"
#include "playfile/OperatorQuestions.h"
#include "playfile/PlayfileOutput.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

SaveOutcome save(const Playfile& playfile, const std::string& to, const SavingOptions& options,
                 std::ostream& out) {
    SaveCircumstances circumstances;
    if (!options.keepPaths)
        circumstances.wantsCopies = [&] { return Answer(options.answers, AskWhetherToCopyFiles); };
    if (to != kStandardStream)
        return SavePlayfile(playfile, to, circumstances);
    OutputTarget target(to, out);
    return WritePlayfile(playfile, target, circumstances);
}

void remark(const std::string& to, const std::vector<ChangedReference>& changes, const Outputs& outputs) {
    for (const auto& [reference, now] : changes)
        outputs.remark(Visible(OutputName(to)) + ": frame " + std::to_string(reference.frame) + ": the " +
                       (reference.member == &FrameRecord::commandfile ? "command file" : "picture") +
                       " is now " + VisibleName(now));
}

/// The changes of loading without those whose result has been changed again by `copies`.
std::vector<ChangedReference> lastingChanges(std::vector<ChangedReference> found,
                                             const std::vector<ChangedReference>& copies) {
    std::erase_if(found, [&](const ChangedReference& change) {
        return std::ranges::any_of(copies, [&](const ChangedReference& copy) {
            return copy.reference.frame == change.reference.frame &&
                   copy.reference.member == change.reference.member;
        });
    });
    return found;
}

/// Copies the file `to` that is about to be replaced. False, after adding the reason, if that fails.
bool keepCopy(const std::string& to, const std::string& notDone, const Outputs& outputs, ErrorLines& errors) {
    const Result<std::string> copy = KeepAside(platform().files(), to, IfNotCopied::fail);
    if (!copy) {
        errors.add(notDone + ": a copy of the file cannot be made", ErrorFor(copy.error()));
        return false;
    }
    outputs.remark(Visible(to + ": the file before is kept as " + copy.value()));
    return true;
}

} // namespace

void AddSavingOptions(CLI::App& command, SavingOptions& options) {
    command.add_flag("--keep-paths", options.keepPaths,
                     "Saves references to files as they are in the playfile; else files that are found only "
                     "beside it are saved with that place");
    AddAnswerOptions(command, options.answers, Questions::asked);
}

void AddBackupOption(CLI::App& command, SavingOptions& options) {
    command.add_flag("--backup", options.keepsCopy,
                     "Keeps the file before beside it, with .bak added to its name, or .bak2 and so on if "
                     "there is another of that name");
}

bool IsOutForPlayfiles(const OutputOptions& output, ErrorLines& errors) {
    return HasKnownPlaceholders(output.out, "a playfile", errors) && MayNamePlayfile(output.out, errors);
}

std::optional<LoadOutcome> OpenToSave(const std::string& name, const SavingOptions& options,
                                      const OutputOptions& output, ErrorLines& errors) {
    return OpenPlayfile(name, output.dryRun ? YesUnlessNo(options.answers) : options.answers, errors,
                        {.keepsReferences = options.keepPaths});
}

std::optional<ExitCode> CodeInsteadOfSaving(const LoadOutcome& opened, const std::string& to,
                                            Outputs& outputs, Session& session, const std::string& notDone) {
    AboutOutput(session.errors, to);
    if (HasLegacyEnding(to)) {
        session.errors.add(notDone +
                           ": a name that ends in PL2 is for the older format, which cannot be saved");
        return ExitCode::failed;
    }
    session.errors.about(opened.playfile.fileName);
    const auto code = outputs.codeInsteadOf(to, notDone);
    if (code == ExitCode::done)
        AddLosses(opened, session.errors);
    return code;
}

ExitCode SaveNow(const LoadOutcome& opened, const std::string& to, const SavingOptions& options,
                 Outputs& outputs, Session& session, const std::string& notDone) {
    AboutOutput(session.errors, to);
    if (options.keepsCopy && to != kStandardStream && platform().files().hasEntry(to) &&
        !keepCopy(to, notDone, outputs, session.errors))
        return ExitCode::failed;
    const SaveOutcome saved = save(opened.playfile, to, options, session.out);
    if (saved.error) {
        session.errors.add(notDone, *saved.error);
        return ExitCode::failed;
    }
    AddLosses(opened, session.errors);
    remark(to, lastingChanges(opened.found, saved.copies), outputs);
    remark(to, saved.copies, outputs);
    if (const std::size_t count = saved.failedCopies.size(); count > 0)
        session.errors.add(Counted(count, "reference") +
                           (count == 1 ? " leads to a file" : " lead to files") +
                           " that could not be copied");
    return ExitCode::done;
}

ExitCode SaveOpened(const LoadOutcome& opened, const std::string& to, const SavingOptions& options,
                    Outputs& outputs, Session& session, const std::string& notDone) {
    const auto code = CodeInsteadOfSaving(opened, to, outputs, session, notDone);
    return code ? *code : SaveNow(opened, to, options, outputs, session, notDone);
}

} // namespace qrtVistrelClasses4
