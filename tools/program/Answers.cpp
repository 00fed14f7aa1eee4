#include "tools/program/Answers.h"

namespace qrtVistrelClasses4 {

void AddAnswerOptions(CLI::App& command, AnswerOptions& options) {
    CLI::Option* yes = command.add_flag("--yes", options.yes, "Answers questions with yes");
    command.add_flag("--no", options.no, "Answers questions with no, as happens without a terminal")
        ->excludes(yes);
}

} // namespace qrtVistrelClasses4
