// Questions to the operator, answered beforehand or asked.
#pragma once

#include "platform/Platform.h"
#include "tools/program/Commands.h"

#include <optional>

namespace qrtVistrelClasses4 {

/// Whether questions are answered beforehand. With neither they are asked.
struct AnswerOptions {
    bool yes = false;
    bool no = false;
};

void AddAnswerOptions(CLI::App& command, AnswerOptions& options);

/// Answers questions as the options tell, for as long as it lives. Messages, and questions that the options
/// do not answer, go where they would have gone.
class Answers final : public MessageBoxes {
public:
    explicit Answers(const AnswerOptions& options);
    MessageAnswer show(const Message& message) override;
    bool attended() override { return boxes_.attended(); }

    /// Whether a question was answered with no, by whomever.
    bool saidNo() const { return saidNo_; }

private:
    MessageBoxes& boxes_;
    std::optional<MessageAnswer> given_;
    bool saidNo_ = false;
    ScopedMessageBoxes scope_{*this};
};

} // namespace qrtVistrelClasses4
