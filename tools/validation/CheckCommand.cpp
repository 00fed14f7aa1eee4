// vistrel check: what is wrong with playfiles.
#include "platform/Platform.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/Saving.h"
#include "tools/program/Moment.h"
#include "tools/program/Size.h"
#include "tools/program/ValueKinds.h"
#include "tools/signs/SignsFile.h"
#include "tools/validation/CheckReport.h"
#include "tools/validation/Circumstances.h"
#include "tools/validation/RuleSelection.h"

#include <algorithm>
#include <limits>
#include <sstream>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kRuleOfReading = "read-incompletely";
static_assert(IndexOfRule(kRuleOfReading) < kRules.size());

struct CheckOptions {
    InputOptions input;
    std::string sign;
    std::optional<DotSize> size;
    std::optional<Moment> at;
    RuleOptions rules;
    bool listsRules = false;
    bool strict = false;
    bool json = false;
    bool fixes = false;
    OutputOptions output; ///< Without a name, the playfiles themselves are fixed.
    SavingOptions saving;
    const CLI::App* command = nullptr;
};

/// What is known on this machine. Adds an error and returns nothing if the list of signs does not have the
/// sign.
std::optional<ValidationCircumstances> findCircumstances(const CheckOptions& options, ErrorLines& errors) {
    ValidationCircumstances known = LoadValidationCircumstances(errors);
    if (!options.sign.empty()) {
        const std::optional<DisplayRecord> sign = FindStoredSign(options.sign, errors);
        if (!sign)
            return std::nullopt;
        UseSign(*sign, known);
    }
    known.signSize = options.size ? options.size : known.signSize;
    return known;
}

/// Checks one playfile after the other.
class PlayfileCheck {
public:
    /// All that is passed must outlive this object.
    PlayfileCheck(const CheckOptions& options, ValidationCircumstances known, CheckReport& report,
                  Outputs& outputs, Session& session)
        : options_(options), known_(std::move(known)), report_(report), outputs_(outputs), session_(session),
          selection_(options.rules), saving_(options.saving) {
        saving_.keepsCopy = options.output.out.empty();
    }

    ExitCode run(const std::string& path) {
        const bool mayAsk = options_.fixes && !options_.output.dryRun;
        const AnswerOptions answers = mayAsk ? saving_.answers : YesUnlessNo(saving_.answers);
        auto opened = OpenToExamine(path, answers, session_.errors, {.keepsReferences = saving_.keepPaths});
        if (!opened)
            return ExitCode::failed;
        CheckedPlayfile checked{.findings = findingsIn(*opened)};
        ExitCode code = ExitCode::done;
        if (options_.fixes && mayBeSaved(*opened)) {
            fixAll(*opened, checked);
            report_.startFile(path, checked);
            code = save(path, *opened, checked);
            checked.isSaved = code == ExitCode::done && !options_.output.dryRun;
        } else {
            if (!options_.fixes && !selection_.has(kRuleOfReading)) // then no finding reports it
                AddWhatIsMissing(*opened, session_.errors);
            report_.startFile(path, checked);
        }
        report_.add(path, checked);
        return code;
    }

private:
    std::vector<Finding> findingsIn(const LoadOutcome& opened) {
        known_.loaded = &opened;
        return selection_.of(Validate(opened.playfile, known_));
    }

    /// False, after adding the reason, if the file has more than could be read.
    bool mayBeSaved(const LoadOutcome& opened) {
        const std::size_t before = session_.errors.count();
        AddWhatIsMissing(opened, session_.errors);
        if (session_.errors.count() == before)
            return true;
        session_.errors.add("not fixed, since the rest of it would be lost");
        return false;
    }

    /// Makes fixes, and examines the playfile again after at most one in each frame: what else was found
    /// there may have gone with it. Each time fewer findings have a fix, so that this ends.
    void fixAll(LoadOutcome& opened, CheckedPlayfile& checked) {
        std::size_t before = checked.findings.size() + 1;
        for (std::size_t left = CountFixable(checked.findings); left > 0 && left < before;
             left = CountFixable(checked.findings)) {
            before = left;
            std::int32_t lastFrame = 0;
            for (const Finding& finding : checked.findings)
                if (finding.frame != lastFrame && ApplyFix(opened.playfile, finding)) {
                    lastFrame = finding.frame;
                    checked.fixed.push_back(finding);
                }
            checked.findings = findingsIn(opened);
        }
        std::ranges::stable_sort(checked.fixed, {}, &Finding::frame);
    }

    /// In place only if something was fixed.
    ExitCode save(const std::string& path, const LoadOutcome& opened, const CheckedPlayfile& checked) {
        const std::string& out = options_.output.out;
        return out.empty() && checked.fixed.empty()
                   ? ExitCode::done
                   : SaveOpened(opened, out.empty() ? path : NameFromPattern(out, path), saving_, outputs_,
                                session_);
    }

    const CheckOptions& options_;
    ValidationCircumstances known_;
    CheckReport& report_;
    Outputs& outputs_;
    Session& session_;
    RuleSelection selection_;
    SavingOptions saving_;
};

/// False, after adding an error, if the options do not fit together.
bool areUsable(const CheckOptions& options, ErrorLines& errors) {
    if (!AreRules(options.rules, errors))
        return false;
    if (options.listsRules)
        return true;
    const std::string& out = options.output.out;
    const auto& names = options.input.names;
    errors.about("check");
    if (names.empty())
        errors.add("FILES is missing; usage: " + UsageOf(*options.command));
    else if (out == kStandardStream && options.json)
        errors.add("standard output takes either the playfile or what --json prints");
    else if (options.fixes && out.empty() && std::ranges::find(names, kStandardStream) != names.end())
        errors.add("standard input cannot be fixed in place; --out names a file for it");
    else
        return IsOutForPlayfiles(options.output, errors) &&
               NamesEachFile(options.output, options.input.areSeveral(), errors);
    return false;
}

CheckForm formOf(const CheckOptions& options) {
    if (options.json)
        return CheckForm::json;
    return options.output.quiet ? CheckForm::nothing : CheckForm::text;
}

/// The exit code of files that could be checked.
ExitCode codeOf(const SeverityCounts& counts, bool strict) {
    const bool hasFaults = counts.of(Severity::error) > 0 || (strict && counts.of(Severity::warning) > 0);
    return hasFaults ? ExitCode::faultsFound : ExitCode::done;
}

ExitCode check(const CheckOptions& options, Session& session) {
    if (!areUsable(options, session.errors))
        return ExitCode::wrongUsage;
    if (options.listsRules) {
        (options.json ? PrintRulesAsJson : PrintRules)(session.out, RuleSelection(options.rules));
        return ExitCode::done;
    }
    auto known = findCircumstances(options, session.errors);
    if (!known)
        return ExitCode::failed;
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    const ScopedMoment moment(options.at);
    OutputOptions output = options.output;
    output.quiet = output.quiet || options.json; // a remark would be in the array
    Outputs outputs(output, ExistingFiles::replaced, session);
    std::ostringstream beside; // a playfile on standard output
    const bool isBeside = output.out == kStandardStream;
    CheckReport report(formOf(options), options.input, isBeside ? beside : session.out);
    PlayfileCheck playfileCheck(options, std::move(*known), report, outputs, session);
    const ExitCode code =
        ForEachInput(inputs, session, [&](const Input& input) { return playfileCheck.run(input.path); });
    report.finish(!options.fixes);
    if (isBeside)
        (void)platform().console().write(StandardStream::error, beside.str());
    return code == ExitCode::done ? codeOf(report.counts(), options.strict) : code;
}

} // namespace

void SetUpCheckCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<CheckOptions>();
    options->command = &command;
    SetAction(command, session, options, &check);
    auto* files = AddInputOptions(command, options->input, "FILES", "The playfiles");
    command
        .add_option(
            "--sign", options->sign,
            "Name of a sign in the list of signs, whose size, type and colours are used; else nothing "
            "is known of colours")
        ->type_name(kSignValue);
    AddSizeOption(command, options->size, std::numeric_limits<std::int16_t>::max(),
                  "Dots of the sign, from 1x1 to 32767x32767; else the size of --sign, else that of the "
                  "preferences");
    AddMomentOption(command, options->at);
    AddRuleOptions(command, options->rules);
    command.add_flag("--rules", options->listsRules, "Lists the rules, and checks nothing")->excludes(files);
    command.add_flag("--strict", options->strict, "Ends with exit code 3 also if there are only warnings");
    command.add_flag("--json", options->json,
                     "Prints an array of what was found and is left, or of the rules");
    auto* fix = command.add_flag("--fix", options->fixes,
                                 "Makes the changes that are safe, and saves the playfiles; without --out in "
                                 "place, and the file before is kept as FILE.bak");
    AddOutOption(command, options->output,
                 "The files to save what --fix changes; they are also saved if there is "
                 "nothing to change")
        ->needs(fix);
    AddOutputOptions(command, options->output, ExistingFiles::replaced);
    AddSavingOptions(command, options->saving);
}

} // namespace qrtVistrelClasses4
