#include "tools/exchange/Stores.h"

#include "frame/SystemErrors.h"
#include "platform/Platform.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/ValueKinds.h"

namespace qrtVistrelClasses4 {

void AddImportOptions(CLI::App& command, ImportOptions& options, const ImportHelp& help) {
    command.add_option("FILE", options.file, R"(The file; "-" for standard input)")
        ->type_name(kFileValue)
        ->required();
    command.add_flag("--merge", options.merges, help.merge);
    command.add_flag("--unchecked", options.isUnchecked, help.unchecked);
}

std::optional<std::string> ReadImport(const ImportOptions& options, ErrorLines& errors) {
    AboutInput(errors, options.file);
    std::optional<std::string> text;
    if (const auto error = ErrorOf([&] { text = ReadInput(options.file); }))
        errors.add(*error);
    return text;
}

void AddExportOptions(CLI::App& command, OutputOptions& options) {
    command
        .add_option("--out", options.out,
                    R"(The file that is written; without it, or as "-", standard output)")
        ->type_name(kFileValue);
    AddOutputOptions(command, options, ExistingFiles::replaced);
}

ExitCode WriteExport(const OutputOptions& options, const std::function<void(ByteSink& file)>& write,
                     Session& session) {
    const std::string path = options.out.empty() ? std::string(kStandardStream) : options.out;
    Outputs outputs(options, ExistingFiles::replaced, session);
    AboutOutput(session.errors, path);
    if (!options.out.empty()) // else a terminal may show it, too
        if (const auto code = outputs.codeInsteadOf(path))
            return *code;
    OutputTarget target(path, session.out);
    const auto error = ErrorOf([&] {
        Check(target.error());
        write(target);
        Check(target.commit());
    });
    if (error) {
        session.errors.add("not written", *error);
        return ExitCode::failed;
    }
    if (path != kStandardStream)
        outputs.remark(Visible(path));
    return ExitCode::done;
}

} // namespace qrtVistrelClasses4
