#include "tools/program/Answers.h"

namespace qrtVistrelClasses4 {

void AddAnswerOptions(CLI::App& command, AnswerOptions& options) {
    CLI::Option* yes = command.add_flag("--yes", options.yes, "Answers questions with yes");
    command.add_flag("--no", options.no, "Answers questions with no, as happens where there is no terminal")
        ->excludes(yes);
}

Answers::Answers(const AnswerOptions& options) : boxes_(messageBoxes()) {
    if (options.yes || options.no)
        given_ = options.yes ? MessageAnswer::yes : MessageAnswer::no;
}

MessageAnswer Answers::show(const Message& message) {
    const bool isAnswered = given_ && message.buttons == MessageButtons::yesNo;
    const MessageAnswer answer = isAnswered ? *given_ : boxes_.show(message);
    saidNo_ = saidNo_ || answer == MessageAnswer::no;
    return answer;
}

} // namespace qrtVistrelClasses4
