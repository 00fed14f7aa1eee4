#include "tools/playfile/Editing.h"

#include "tools/playfile/Opening.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

ordered_json jsonOfChange(const RecordChange& change) {
    ordered_json json{{"frame", change.frame}};
    if (change.line > 0)
        json["line"] = change.line;
    json["property"] = change.property.name;
    json["before"] = change.property.before;
    json["after"] = change.property.after;
    return json;
}

std::string textOfChange(const RecordChange& change) {
    return "frame " + std::to_string(change.frame) +
           (change.line > 0 ? ", line " + std::to_string(change.line) : "") + ": " +
           ChangeText(change.property);
}

} // namespace

/// Saves what was edited, and reports it.
class EditRun {
public:
    EditRun(const EditOptions& options, std::vector<EditedPlayfile>& edited, Session& session)
        : options_(options), edited_(edited), session_(session), output_(outputOptions(options, edited)),
          quiet_(output_), report_(output_, ExistingFiles::replaced, session),
          outputs_(quiet_, ExistingFiles::replaced, session) {
        quiet_.quiet = quiet_.quiet || options.json;
        if (edited.size() > 1)
            outputs_.lookAhead();
    }

    ExitCode saveAll() {
        ExitCode result = ExitCode::done;
        for (EditedPlayfile& each : edited_) {
            if (!isSaved(each))
                continue;
            each.numberReferences();
            if (options_.output.dryRun)
                printChanges(each);
            const auto code = CodeInsteadOfSaving(each.opened_, targetOf(each), outputs_, session_);
            if (code.value_or(ExitCode::done) != ExitCode::done)
                result = *code;
        }
        for (const EditedPlayfile& each : edited_)
            if (result == ExitCode::done)
                result = save(each);
        if (options_.json && (result == ExitCode::done || !reports_.empty()))
            report_.print(JsonText(options_.input.areSeveral() ? reports_
                                   : reports_.empty()          ? ordered_json::object()
                                                               : reports_.front()));
        return result;
    }

private:
    /// A playfile on standard output has it for itself.
    static OutputOptions outputOptions(const EditOptions& options,
                                       const std::vector<EditedPlayfile>& edited) {
        OutputOptions output = options.output;
        if (output.out.empty() &&
            std::ranges::find(edited, kStandardStream, &EditedPlayfile::path_) != edited.end())
            output.out = kStandardStream;
        return output;
    }

    /// A file that is not changed stays as it is, unless it goes to another place.
    bool isSaved(const EditedPlayfile& edited) const {
        return edited.isChanged || targetOf(edited) != edited.path_ || edited.path_ == kStandardStream;
    }

    std::string targetOf(const EditedPlayfile& edited) const {
        const std::string& out = options_.output.out;
        return out.empty() ? edited.path_ : NameFromPattern(out, edited.path_);
    }

    void printChanges(const EditedPlayfile& edited) const {
        for (const RecordChange& change : edited.changes_)
            outputs_.print(Visible(OutputName(targetOf(edited))) + ": " + textOfChange(change));
    }

    ExitCode save(const EditedPlayfile& edited) {
        const std::string to = targetOf(edited);
        if (!isSaved(edited)) {
            if (edited.done.empty())
                return ExitCode::done;
            outputs_.print(Visible(OutputName(to) + ": " + edited.done));
        } else if (!options_.output.dryRun) {
            if (const ExitCode code = SaveNow(edited.opened_, to, options_.saving, outputs_, session_);
                code != ExitCode::done)
                return code;
            printChanges(edited);
        }
        const std::int32_t count = edited.opened_.playfile.frames.upperBound();
        if (isSaved(edited))
            outputs_.remark(
                Visible(OutputName(to) + ": " + (edited.done.empty() ? "unchanged" : edited.done)) + "; " +
                Counted(count, "frame") + " now");
        if (!options_.json)
            return ExitCode::done;
        ordered_json report{{"file", to}, {"done", edited.done}, {"TotalFrames", count}};
        for (const RecordChange& change : edited.changes_)
            report["changes"].push_back(jsonOfChange(change));
        if (options_.output.dryRun)
            report["dryRun"] = true;
        reports_.push_back(std::move(report));
        return ExitCode::done;
    }

    const EditOptions& options_;
    std::vector<EditedPlayfile>& edited_;
    Session& session_;
    OutputOptions output_;
    OutputOptions quiet_; ///< The same, but JSON takes the place of lines.
    Outputs report_;
    Outputs outputs_;
    ordered_json reports_ = ordered_json::array();
};

void AddEditOptions(CLI::App& command, EditOptions& options, References references) {
    AddInputOptions(command, options.input, "FILES",
                    "The playfiles, saved in place unless --out names other files; none is saved if one "
                    "cannot be read, edited or replaced")
        ->required();
    AddOutOption(command, options.output, "The files to save");
    AddOutputOptions(command, options.output, ExistingFiles::replaced);
    if (references == References::found) {
        AddSavingOptions(command, options.saving);
    } else {
        options.saving.keepPaths = true;
        AddAnswerOptions(command, options.saving.answers, Questions::asked);
    }
    AddBackupOption(command, options.saving);
    command.add_flag("--json", options.json,
                     "Prints the file, what was done, the number of frames and each changed property; for "
                     "several files, an array of these");
}

EditedPlayfile::EditedPlayfile(std::string path, LoadOutcome loaded)
    : references(ReferencesByFrame(loaded)), path_(std::move(path)), opened_(std::move(loaded)) {}

void EditedPlayfile::forgetLosses(std::int32_t first, std::int32_t last) {
    if (opened_.legacy)
        std::erase_if(opened_.legacy->losses,
                      [&](const LegacyLoss& loss) { return loss.frame >= first && loss.frame <= last; });
}

void EditedPlayfile::numberReferences() {
    opened_.found.clear();
    std::int32_t number = 0;
    for (std::vector<ChangedReference>& frame : references) {
        ++number;
        for (ChangedReference& change : frame) {
            if (frames().at(number).*change.reference.member != change.now)
                continue;
            change.reference.frame = number;
            opened_.found.push_back(std::move(change));
        }
    }
}

std::vector<std::vector<ChangedReference>> ReferencesByFrame(const LoadOutcome& opened) {
    std::vector<std::vector<ChangedReference>> frames(
        static_cast<std::size_t>(opened.playfile.frames.upperBound()));
    for (const ChangedReference& change : opened.found)
        frames.at(static_cast<std::size_t>(change.reference.frame) - 1).push_back(change);
    return frames;
}

ExitCode EditPlayfiles(const EditOptions& options, Session& session, const PlayfileEdit& edit) {
    ErrorLines& errors = session.errors;
    if (!NamesEachFile(options.output, options.input.areSeveral(), errors) ||
        !IsOutForPlayfiles(options.output, errors))
        return ExitCode::wrongUsage;
    const std::size_t errorsBefore = errors.count();
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, errors);
    const bool areAllFound = errors.count() == errorsBefore;
    std::vector<EditedPlayfile> edited;
    const ExitCode code = ForEachInput(inputs, session, [&](const Input& input) {
        auto opened = OpenToSave(input.path, options.saving, options.output, errors);
        if (!opened)
            return ExitCode::failed;
        AboutInput(errors, input.path);
        const std::size_t errorsOfOpening = errors.count();
        edit(edited.emplace_back(input.path, *std::move(opened)), errors);
        return errors.count() == errorsOfOpening ? ExitCode::done : ExitCode::failed;
    });
    return code == ExitCode::done && areAllFound ? EditRun(options, edited, session).saveAll()
                                                 : ExitCode::failed;
}

} // namespace qrtVistrelClasses4
