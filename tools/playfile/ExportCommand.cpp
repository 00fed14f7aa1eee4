// vistrel export: the frames of a playfile for other tools.
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include <qrtVistrelClasses4/SavePlayfile.h>

namespace qrtVistrelClasses4 {
namespace {

struct ExportOptions {
    std::string file;
    std::string out; ///< If empty, the name of the playfile.
    AnswerOptions answers;
};

ExitCode exportXml(const ExportOptions& options, Session& session) {
    const auto opened = OpenPlayfile(options.file, options.answers, session.errors);
    if (!opened)
        return ExitCode::failed;
    const std::string path = (options.out.empty() ? options.file : options.out) + kXmlEnding;
    session.errors.aboutFile(path);
    if (const auto error = ExportXml(opened->playfile, path)) {
        session.errors.add("not written", *error);
        return ExitCode::failed;
    }
    session.out << Visible(path) << '\n';
    AddLosses(*opened, session.errors);
    return ExitCode::done;
}

} // namespace

void SetUpExportCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<ExportOptions>();
    SetAction(command, session, options, &exportXml);
    command.add_option("FILE", options->file, "The playfile")->required();
    command.add_option("--out", options->out,
                       "Name to write to, without the \".xml\" that is added; else the playfile's own");
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
