// vistrel signs export and import.
#include "frame/SystemErrors.h"
#include "tools/exchange/Stores.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/signs/SignsExchange.h"
#include "tools/signs/SignsFile.h"
#include "tools/signs/SignsReport.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kCsvEnding = ".csv";

struct SignsExchangeOptions {
    std::shared_ptr<const bool> json; ///< Whether what was done is printed as JSON.
    bool isCsv = false;               ///< Whatever the name of the file.
    OutputOptions output;
    ImportOptions input;
};

ExitCode exportSigns(const SignsExchangeOptions& options, Session& session) {
    const std::optional<SignsFile> file = LoadSigns(session.errors);
    if (!file)
        return ExitCode::failed;
    AddFaults(*file, session.errors);
    if (!session.errors.empty())
        return ExitCode::failed;
    if (!options.isCsv && EndingOf(options.output.out) != kCsvEnding)
        return WriteJsonExport(options.output, file->list.signs, session);
    const auto write = [&](ByteSink& out) { Check(out.write(CsvOf(file->list))); };
    return WriteExport(options.output, write, session);
}

ExitCode importSigns(const SignsExchangeOptions& options, Session& session) {
    const std::optional<std::string> text = ReadImport(options.input, session.errors);
    std::optional<SignsFile> file = text ? LoadSigns(session.errors) : std::nullopt;
    if (!file || (options.input.merges && !MayBeChanged(*file, session.errors)))
        return ExitCode::failed;
    const SignsImport import{InputName(options.input.file), options.input.isUnchecked,
                             options.input.merges ? &file->list : nullptr};
    const bool isCsv = options.isCsv || EndingOf(options.input.file) == kCsvEnding;
    std::optional<SignList> list = (isCsv ? SignsOfCsv : SignsOfJson)(*text, import, session.errors);
    if (!list)
        return ExitCode::failed;
    const SignsReport report{.done = "imported " + import.fileName, .readFrom = file->path};
    file->list = *std::move(list);
    if (!SaveSigns(*file, session.errors))
        return ExitCode::failed;
    PrintReport(session.out, report, *file, *options.json);
    return ExitCode::done;
}

} // namespace

void AddSignsExchange(CLI::App& signs, Session& session, std::shared_ptr<const bool> json) {
    const auto options = std::make_shared<SignsExchangeOptions>();
    options->json = std::move(json);
    CLI::App& exporting = AddCommand(signs, "export", "Writes all signs as JSON, or as CSV for spreadsheets",
                                     "vistrel signs export --out signs.csv", session, options, &exportSigns);
    AddExportOptions(exporting, options->output);
    CLI::App& importing = AddCommand(
        signs, "import", "Replaces all signs by those of a JSON or CSV file, once all of it has been checked",
        "vistrel signs import signs.csv --merge", session, options, &importSigns);
    AddImportOptions(
        importing, options->input,
        {"Changes the signs that have the same names, keeps all others, and adds those that are new",
         "Takes values that no sign has, too"});
    for (CLI::App* command : {&exporting, &importing})
        command->add_flag("--csv", options->isCsv, "Takes CSV, as for a file whose name ends in .csv");
}

} // namespace qrtVistrelClasses4
