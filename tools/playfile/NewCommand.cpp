// vistrel new: playfiles with one frame.
#include "tools/playfile/Saving.h"
#include "tools/playfile/TypedProperties.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/ValueKinds.h"

#include <memory>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

struct NewOptions {
    std::string file;
    PropertyOptions properties;
    OutputOptions output;
};

ExitCode makePlayfile(const NewOptions& options, Session& session) {
    const auto frame = NewFrameFrom(options.properties, session.errors);
    if (!frame || !MayNamePlayfile(options.file, session.errors))
        return ExitCode::wrongUsage;
    LoadOutcome made;
    made.playfile.fileName = OutputName(options.file);
    made.playfile.frames.resize(1);
    made.playfile.frames.at(1) = *frame;
    OutputOptions output = options.output;
    output.out = options.file;
    Outputs outputs(output, ExistingFiles::kept, session);
    const SavingOptions saving{.answers = {.no = true}}; // the files it refers to stay where they are
    const ExitCode code = SaveOpened(made, options.file, saving, outputs, session);
    if (code == ExitCode::done)
        outputs.remark(Visible(OutputName(options.file)) + ": made with one frame");
    return code;
}

} // namespace

void SetUpNewCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<NewOptions>();
    SetAction(command, session, options, &makePlayfile);
    command.add_option("FILE", options->file, R"(The file to make; "-" for standard output)")
        ->type_name(kPlayfileValue)
        ->required();
    AddPropertyOptions(command, options->properties, kNewFramePropertyValue, kNewFrameHelp);
    AddOutputOptions(command, options->output, ExistingFiles::kept);
}

} // namespace qrtVistrelClasses4
