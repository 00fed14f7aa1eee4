#pragma once

#include "platform/TerminalMessageBoxes.h"

namespace qrtVistrelClasses4 {

/// The messages of a console program.
class ConsoleMessageBoxes final : public TerminalMessageBoxes {
public:
    bool attended() override;

private:
    void print(const std::string& text) override;
    std::string ask(const std::string& question) override;
};

} // namespace qrtVistrelClasses4
