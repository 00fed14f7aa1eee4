// vistrel export: the frames of a playfile for other tools.
#include "playfile/FrameInfoClass.h"
#include "tools/playfile/Opening.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"

namespace qrtVistrelClasses4 {
namespace {

struct ExportOptions {
    std::string file;
    std::string out; ///< Empty: the name of the playfile.
    AnswerOptions answers;
};

ExitCode exportXml(const ExportOptions& options, Session& session) {
    FrameInfoClass playfile;
    if (!OpenPlayfile(playfile, options.file, options.answers, session.errors))
        return ExitCode::failed;
    const std::string& name = options.out.empty() ? options.file : options.out;
    session.errors.about(name + ".xml");
    if (!playfile.WriteXMLToDisk(name)) {
        session.errors.add("not written");
        return ExitCode::failed;
    }
    session.out << Visible(name + ".xml") << '\n';
    return ExitCode::done;
}

} // namespace

void AddExportCommand(CLI::App& program, Session& session) {
    CLI::App& command =
        AddCommand(program, "export", "Writes the frames of a playfile as XML for other tools",
                   "vistrel export harbour.playfile --out harbour");
    const auto options = std::make_shared<ExportOptions>();
    command.add_option("FILE", options->file, "The playfile")->required();
    command.add_option("--out", options->out,
                       "Name to write to, without the \".xml\" that is added; else the playfile's own");
    AddAnswerOptions(command, options->answers);
    command.callback([options, &session] {
        session.command = [options, &session] { return exportXml(*options, session); };
    });
}

} // namespace qrtVistrelClasses4
