#pragma once

#include <qrtVistrelClasses4/MessageBoxes.h>

#include <string>

namespace qrtVistrelClasses4 {

/// Messages go to standard error, questions to the terminal. Without a terminal, every question is answered
/// "no".
class TerminalMessageBoxes final : public MessageBoxes {
public:
    MessageAnswer show(const Message& message) override;
    bool attended() override;

private: // each system has its own
    /// Prints on standard error. A failure has no better place to be reported.
    static void print(const std::string& text);
    /// Prints a question on the terminal of this process, also when its input and output are redirected.
    /// Returns the line that is typed there; an empty one without a terminal.
    static std::string ask(const std::string& question);
};

} // namespace qrtVistrelClasses4
