// vistrel save: playfiles under other names.
#include "tools/playfile/Saving.h"
#include "tools/program/Inputs.h"

namespace qrtVistrelClasses4 {
namespace {

struct SaveOptions {
    InputOptions input; ///< Without "--out", the playfile and the name to save it under.
    OutputOptions output;
    SavingOptions saving;
};

ExitCode saveFiles(const SaveOptions& options, Session& session) {
    if (!NamesEachFile(options.output, options.input.areSeveral(), session.errors) ||
        !IsOutForPlayfiles(options.output, session.errors))
        return ExitCode::wrongUsage;
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    Outputs outputs(options.output, ExistingFiles::replaced, session);
    return ForEachInput(inputs, session, [&](const Input& input) {
        const auto opened = OpenToSave(input.path, options.saving, options.output, session.errors);
        return opened ? SaveOpened(*opened, NameFromPattern(options.output.out, input.path), options.saving,
                                   outputs, session)
                      : ExitCode::failed;
    });
}

ExitCode save(const SaveOptions& options, Session& session) {
    if (!options.output.out.empty())
        return saveFiles(options, session);
    const auto& names = options.input.names;
    if (names.size() != 2 || options.input.recursive) {
        session.errors.about({});
        session.errors.add("save takes a playfile and the name to save it under, or playfiles and --out");
        return ExitCode::wrongUsage;
    }
    if (!MayNamePlayfile(names.back(), session.errors))
        return ExitCode::wrongUsage;
    OutputOptions output = options.output;
    output.out = names.back();
    Outputs outputs(output, ExistingFiles::replaced, session);
    const auto opened = OpenToSave(names.front(), options.saving, output, session.errors);
    return opened ? SaveOpened(*opened, names.back(), options.saving, outputs, session) : ExitCode::failed;
}

} // namespace

void SetUpSaveCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<SaveOptions>();
    SetAction(command, session, options, &save);
    AddInputOptions(command, options->input, "IN OUT",
                    "The playfile to open and the file to save; with --out, only playfiles to open")
        ->required();
    AddOutOption(command, options->output, "The files to save");
    AddOutputOptions(command, options->output, ExistingFiles::replaced);
    AddSavingOptions(command, options->saving);
}

} // namespace qrtVistrelClasses4
