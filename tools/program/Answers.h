// Questions to the operator, answered beforehand or asked.
#pragma once

#include "tools/program/Commands.h"

namespace qrtVistrelClasses4 {

/// How questions are answered beforehand. If both are false, questions are asked.
struct AnswerOptions {
    bool yes = false;
    bool no = false;
};

/// Whether a command asks about playfiles of the older format, or goes on as if the answer were yes.
enum class Questions { notAsked, asked };

/// Adds "--yes" and "--no".
void AddAnswerOptions(CLI::App& command, AnswerOptions& options, Questions questions = Questions::notAsked);

/// For commands and dry runs that save no playfile, and so ask nothing about those of the older format. Only
/// "--no" still leaves these alone.
inline AnswerOptions YesUnlessNo(const AnswerOptions& options) {
    return {.yes = !options.no, .no = options.no};
}

/// The answer that the options give to a question, or else the one that `ask` gets from the operator.
inline bool Answer(const AnswerOptions& options, bool (*ask)()) {
    return options.yes || (!options.no && ask());
}

} // namespace qrtVistrelClasses4
