#pragma once

#include "platform/TerminalMessageBoxes.h"

namespace qrtVistrelClasses4 {

class PosixMessageBoxes final : public TerminalMessageBoxes {
public:
    bool attended() override;

private:
    void print(const std::string& text) override;
    std::string ask(const std::string& question) override;
};

} // namespace qrtVistrelClasses4
