// vistrel save: a playfile under another name.
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
    const auto opened = OpenPlayfile(options.from, options.answers, session.errors);
    return opened && SaveOpened(*opened, options.to, options.answers, session) ? ExitCode::done
                                                                               : ExitCode::failed;
}

} // namespace

void SetUpSaveCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<SaveOptions>();
    SetAction(command, session, options, &save);
    command.add_option("IN", options->from, "The playfile to open")->required();
    command.add_option("OUT", options->to, "The file to save; an existing file is replaced")->required();
    AddAnswerOptions(command, options->answers);
}

} // namespace qrtVistrelClasses4
