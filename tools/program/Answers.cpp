#include "tools/program/Answers.h"

namespace qrtVistrelClasses4 {

void AddAnswerOptions(CLI::App& command, AnswerOptions& options, Questions questions) {
    const bool areAsked = questions == Questions::asked;
    CLI::Option* yes = command.add_flag("--yes", options.yes,
                                        areAsked ? "Answers questions with yes"
                                                 : "Opens playfiles of the older format (PL2), as usual");
    command
        .add_flag("--no", options.no,
                  areAsked ? "Answers questions with no, as happens without a terminal"
                           : "Leaves playfiles of the older format alone, with an error")
        ->excludes(yes);
}

} // namespace qrtVistrelClasses4
