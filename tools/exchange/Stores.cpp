#include "tools/exchange/Stores.h"

#include "frame/SystemErrors.h"
#include "platform/Platform.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/ValueKinds.h"

namespace qrtVistrelClasses4 {

void AddImportOptions(CLI::App& command, ImportOptions& options, const std::string& merge) {
    command.add_option("FILE", options.file, R"(The file; "-" for standard input)")
        ->type_name(kFileValue)
        ->required();
    command.add_flag("--merge", options.merges, merge);
    command.add_flag("--unchecked", options.isUnchecked, "Takes values that no sign has, too");
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

ExitCode WriteExport(const OutputOptions& options, std::string_view text, Session& session) {
    if (options.out.empty()) {
        session.out << text;
        return ExitCode::done;
    }
    Outputs outputs(options, ExistingFiles::replaced, session);
    AboutOutput(session.errors, options.out);
    if (const auto code = outputs.codeInsteadOf(options.out))
        return *code;
    OutputTarget target(options.out, session.out);
    const auto error = ErrorOf([&] {
        Check(target.error());
        Check(target.write(text));
        Check(target.commit());
    });
    if (error) {
        session.errors.add("not written", *error);
        return ExitCode::failed;
    }
    if (options.out != kStandardStream)
        outputs.remark(Visible(options.out));
    return ExitCode::done;
}

} // namespace qrtVistrelClasses4
