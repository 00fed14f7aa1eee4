// vistrel save: a playfile under another name.
#include "playfile/FrameInfoClass.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/Saving.h"
#include "tools/program/Commands.h"

namespace qrtVistrelClasses4 {
namespace {

struct SaveOptions {
    std::string from;
    std::string to;
    AnswerOptions answers;
};

ExitCode save(const SaveOptions& options, Session& session) {
    FrameInfoClass playfile;
    if (!OpenPlayfile(playfile, options.from, options.answers, session.errors))
        return ExitCode::failed;
    return SavePlayfile(playfile, options.to, options.answers, session);
}

} // namespace

void AddSaveCommand(CLI::App& program, Session& session) {
    CLI::App& command = AddCommand(program, "save", "Opens a playfile and saves it under another name",
                                   "vistrel save harbour.playfile pier.playfile");
    const auto options = std::make_shared<SaveOptions>();
    command.add_option("IN", options->from, "The playfile to open")->required();
    command.add_option("OUT", options->to, "The file to save; one that is there is replaced")->required();
    AddAnswerOptions(command, options->answers);
    command.callback(
        [options, &session] { session.command = [options, &session] { return save(*options, session); }; });
}

} // namespace qrtVistrelClasses4
