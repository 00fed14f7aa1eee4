#include "tools/Saving.h"

#include "platform/Platform.h"

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

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

} // namespace

void AddAnswerOptions(CLI::App& command, AnswerOptions& options) {
    CLI::Option* yes = command.add_flag("--yes", options.yes, "Answers questions with yes");
    command.add_flag("--no", options.no, "Answers questions with no, as happens where there is no terminal")
        ->excludes(yes);
}

ExitCode SavePlayfile(FrameInfoClass& playfile, const std::string& to, const AnswerOptions& options,
                      Session& session) {
    AnsweringBoxes answering(messageBoxes(), options.yes ? MessageAnswer::yes : MessageAnswer::no);
    std::optional<ScopedMessageBoxes> scope;
    if (options.yes || options.no)
        scope.emplace(answering);
    session.errors.about(to);
    if (playfile.WritePlayfileToDisk(to))
        return ExitCode::done;
    session.errors.add("not saved");
    return ExitCode::failed;
}

} // namespace qrtVistrelClasses4
