#pragma once

#include "platform/Console.h"

#include <array>
#include <string>

namespace qrtVistrelClasses4 {

/// Consoles get their texts in 16-bit characters, so that they show them whatever their code page is. Files
/// and pipes get the bytes.
class WindowsConsole final : public Console {
public:
    bool isTerminal(StandardStream stream) override;
    Terminal terminal() override;
    SystemError write(StandardStream stream, std::string_view text) override;
    Result<std::string> read(std::size_t most) override;

private:
    std::array<std::string, 3>
        cutCharacters_; ///< By stream: the start of one whose rest comes with the next text.
};

/// Whether the stream is a terminal of the POSIX environments for Windows, which is a pipe with a certain
/// name. It takes UTF-8 and escape sequences.
bool IsPseudoTerminal(StandardStream stream);

} // namespace qrtVistrelClasses4
