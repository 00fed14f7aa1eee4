#pragma once

#include <qrtVistrelClasses4/MessageBoxes.h>

#include <string>

namespace qrtVistrelClasses4 {

/// Messages go to standard error, questions to the terminal. Without a terminal, every question is answered
/// "no".
class TerminalMessageBoxes : public MessageBoxes {
public:
    MessageAnswer show(const Message& message) final;

private:
    /// Prints on standard error. A failure has no better place to be reported.
    virtual void print(const std::string& text) = 0;
    /// Prints a question on the terminal of this process, also when its input and output are redirected.
    /// Returns the line that is typed there; an empty one without a terminal.
    virtual std::string ask(const std::string& question) = 0;
};

} // namespace qrtVistrelClasses4
