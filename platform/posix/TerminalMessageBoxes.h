#pragma once

#include <qrtVistrelClasses4/MessageBoxes.h>

namespace qrtVistrelClasses4 {

/// Messages go to standard error, questions to the terminal. Without a terminal, every question is answered
/// "no".
class TerminalMessageBoxes final : public MessageBoxes {
public:
    MessageAnswer show(const Message& message) override;
    bool attended() override;
};

} // namespace qrtVistrelClasses4
