// vistrel export: the frames of playfiles for other tools.
#include "frame/SystemErrors.h"
#include "playfile/PlayfileOutput.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/Outputs.h"

namespace qrtVistrelClasses4 {
namespace {

struct ExportOptions {
    InputOptions input;
    OutputOptions output;
    bool wellFormed = false;
    AnswerOptions answers;
};

/// "--out" with ".xml" at its end. Nothing, after adding an error, if it has another ending.
std::optional<std::string> patternOf(const std::string& out, ErrorLines& errors) {
    const std::string ending = EndingOf(out);
    if (out == kStandardStream || out.empty())
        return out;
    if (ending.empty())
        return out + kXmlEnding;
    return HasEnding(out, {kXmlEnding}, errors) ? std::optional(out) : std::nullopt;
}

std::string targetOf(const std::string& input, const std::string& pattern) {
    if (!pattern.empty())
        return NameFromPattern(pattern, input);
    return input == kStandardStream ? input : input + kXmlEnding;
}

ExitCode exportFile(const std::string& path, const std::string& to, const ExportOptions& options,
                    Outputs& outputs, Session& session) {
    const auto opened = OpenPlayfile(path, YesUnlessNo(options.answers), session.errors);
    if (!opened)
        return ExitCode::failed;
    if (const auto code = outputs.codeInsteadOf(to)) {
        if (*code == ExitCode::done)
            AddLosses(*opened, session.errors);
        return *code;
    }
    AboutOutput(session.errors, to);
    OutputTarget target(to, session.out);
    std::optional<RuntimeError> error = ErrorOf([&] {
        Check(target.error());
        Check(WriteXml(opened->playfile, target, options.wellFormed ? XmlForm::document : XmlForm::elements));
        Check(target.commit());
    });
    if (error) {
        session.errors.add("not written", *error);
        return ExitCode::failed;
    }
    if (to != kStandardStream)
        outputs.remark(Visible(to));
    AddLosses(*opened, session.errors);
    return ExitCode::done;
}

ExitCode exportFiles(const ExportOptions& options, Session& session) {
    const std::optional<std::string> pattern = patternOf(options.output.out, session.errors);
    if (!pattern || !HasKnownPlaceholders(*pattern, "an export", session.errors) ||
        !NamesEachFile(options.output, options.input.areSeveral(), session.errors))
        return ExitCode::wrongUsage;
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::playfile, session.errors);
    Outputs outputs(options.output, ExistingFiles::replaced, session);
    return ForEachInput(inputs, session, [&](const Input& input) {
        return exportFile(input.path, targetOf(input.path, *pattern), options, outputs, session);
    });
}

} // namespace

void SetUpExportCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<ExportOptions>();
    SetAction(command, session, options, &exportFiles);
    AddInputOptions(command, options->input, "FILES", "The playfiles")->required();
    AddOutOption(
        command, options->output,
        "The XML files, whose ending .xml is added if it is missing; else those of the playfiles with "
        ".xml after their names");
    command.add_flag(
        "--well-formed", options->wellFormed,
        "Writes an XML document in UTF-8, with a declaration and a root element. Without it, the "
        "form is the one that existing tools read: elements without a root or a declaration, "
        "values in quotes on lines of their own and without escapes, in Windows-1252");
    AddOutputOptions(command, options->output, ExistingFiles::replaced);
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
