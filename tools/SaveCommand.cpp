// vistrel save: a playfile under another name.
#include "platform/Platform.h"
#include "playfile/FrameInfoClass.h"
#include "tools/Commands.h"

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

struct SaveOptions {
    std::string from;
    std::string to;
    bool yes = false;
    bool no = false;
};

/// Gives one answer to every question; messages go where they would have gone.
class AnsweringBoxes final : public MessageBoxes {
public:
    AnsweringBoxes(MessageBoxes& boxes, MessageAnswer answer) : boxes_(boxes), answer_(answer) {}
    MessageAnswer show(const Message& message) override {
        return message.buttons == MessageButtons::yesNo ? answer_ : boxes_.show(message);
    }
    bool attended() override { return boxes_.attended(); }

private:
    MessageBoxes& boxes_;
    MessageAnswer answer_;
};

ExitCode save(const SaveOptions& options, Session& session) {
    AnsweringBoxes answering(messageBoxes(), options.yes ? MessageAnswer::yes : MessageAnswer::no);
    std::optional<ScopedMessageBoxes> scope;
    if (options.yes || options.no)
        scope.emplace(answering);

    FrameInfoClass playfile;
    session.errors.about(options.from);
    if (!playfile.GetPlayfileFromDisk(options.from))
        return ExitCode::failed;
    session.errors.about(options.to);
    if (!playfile.WritePlayfileToDisk(options.to)) {
        session.errors.add("not saved");
        return ExitCode::failed;
    }
    return ExitCode::done;
}

} // namespace

void AddSaveCommand(CLI::App& program, Session& session) {
    CLI::App& command = AddCommand(program, "save", "Opens a playfile and saves it under another name",
                                   "vistrel save harbour.playfile pier.playfile");
    const auto options = std::make_shared<SaveOptions>();
    command.add_option("IN", options->from, "The playfile to open")->required();
    command.add_option("OUT", options->to, "The file to save; one that is there is replaced")->required();
    CLI::Option* yes = command.add_flag("--yes", options->yes, "Answers questions with yes");
    command.add_flag("--no", options->no, "Answers questions with no, as happens where there is no terminal")
        ->excludes(yes);
    command.callback(
        [options, &session] { session.command = [options, &session] { return save(*options, session); }; });
}

} // namespace qrtVistrelClasses4
