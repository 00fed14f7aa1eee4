// vistrel make: playfiles from JSON.
#include "tools/exchange/JsonInput.h"
#include "tools/exchange/PlayfileJson.h"
#include "tools/playfile/Saving.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/ValueKinds.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct MakeOptions {
    std::vector<std::string> names;
    OutputOptions output;
    SavingOptions saving{.answers = {}, .keepPaths = true};
};

/// The playfile that a text describes. Nothing, after adding all that is wrong with it, if something is.
std::optional<LoadOutcome> readPlayfile(const std::string& name, ErrorLines& errors) {
    AboutInput(errors, name);
    LoadOutcome made;
    made.playfile.fileName = InputName(name);
    if (!ReadJson(ReadInput(name), KindOfPlayfile(), &made.playfile.frames, errors, JsonChecks::typesOnly))
        return std::nullopt;
    return made;
}

ExitCode save(const LoadOutcome& made, const std::string& to, const MakeOptions& options, Outputs& outputs,
              Session& session) {
    const ExitCode code = SaveNow(made, to, options.saving, outputs, session);
    if (code == ExitCode::done)
        outputs.remark(Visible(OutputName(to) + ": made of " + made.playfile.fileName) + "; " +
                       Counted(made.playfile.frames.upperBound(), "frame"));
    return code;
}

ExitCode make(const MakeOptions& options, Session& session) {
    if (!NamesEachFile(options.output, options.names.size() > 1, session.errors) ||
        !IsOutForPlayfiles(options.output, session.errors))
        return ExitCode::wrongUsage;
    std::vector<Input> inputs;
    for (const std::string& name : options.names)
        inputs.push_back({name, name});
    std::vector<std::pair<std::string, LoadOutcome>> playfiles; // with the name that each is saved under
    const ExitCode read = ForEachInput(inputs, session, [&](const Input& input) {
        std::optional<LoadOutcome> made = readPlayfile(input.path, session.errors);
        if (!made)
            return ExitCode::failed;
        playfiles.emplace_back(NameFromPattern(options.output.out, input.path), *std::move(made));
        return ExitCode::done;
    });
    if (read != ExitCode::done)
        return read;
    Outputs outputs(options.output, ExistingFiles::replaced, session);
    if (playfiles.size() > 1)
        outputs.lookAhead();
    ExitCode result = ExitCode::done;
    for (const auto& [to, made] : playfiles)
        if (CodeInsteadOfSaving(made, to, outputs, session).value_or(ExitCode::done) != ExitCode::done)
            result = ExitCode::failed;
    for (const auto& [to, made] : playfiles)
        if (result == ExitCode::done && !options.output.dryRun)
            result = save(made, to, options, outputs, session);
    return result;
}

} // namespace

void SetUpMakeCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<MakeOptions>();
    SetAction(command, session, options, &make);
    command
        .add_option(
            "FILES", options->names,
            R"(Files of JSON as "vistrel show --json" prints it of one playfile; "-" for standard input)")
        ->type_name(kFileValue)
        ->required();
    AddOutOption(command, options->output,
                 "The playfiles to save; if something is wrong with a file or its place, none is saved")
        ->required();
    AddOutputOptions(command, options->output, ExistingFiles::replaced);
    AddBackupOption(command, options->saving);
}

} // namespace qrtVistrelClasses4
