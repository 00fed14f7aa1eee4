#pragma once

#include "platform/Console.h"

namespace qrtVistrelClasses4 {

class WindowsConsole final : public Console {
public:
    bool isTerminal(StandardStream stream) override;
    Terminal terminal() override;
    SystemError write(StandardStream stream, std::string_view text) override;
    Result<std::string> read(std::size_t most) override;
};

} // namespace qrtVistrelClasses4
