#include "platform/TerminalMessageBoxes.h"

#include "platform/posix/PosixSystem.h"

#include <fcntl.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

Descriptor openTerminal() { return openDescriptor("/dev/tty", O_RDWR | O_NOCTTY); }

bool hasStandardTerminal() { return ::isatty(STDIN_FILENO) && ::isatty(STDERR_FILENO); }

std::string readLine(int input) {
    constexpr std::size_t most = 256; // more is no answer to a question
    std::string line;
    char character = '\0';
    while (uninterrupted([&] { return ::read(input, &character, 1); }) == 1 && character != '\n')
        if (line.size() < most)
            line += character;
    return line;
}

} // namespace

void TerminalMessageBoxes::print(const std::string& text) { (void)writeAll(STDERR_FILENO, text); }

std::string TerminalMessageBoxes::ask(const std::string& question) {
    const Descriptor terminal = openTerminal();
    if (!terminal && !hasStandardTerminal())
        return {};
    (void)writeAll(terminal ? terminal.number() : STDERR_FILENO, question);
    return readLine(terminal ? terminal.number() : STDIN_FILENO);
}

bool TerminalMessageBoxes::attended() { return openTerminal() || hasStandardTerminal(); }

} // namespace qrtVistrelClasses4
