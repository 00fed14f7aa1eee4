#include "platform/posix/TerminalMessageBoxes.h"

#include "platform/posix/PosixSystem.h"

#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

/// The terminal of this process, also when its input and output are redirected.
Descriptor openTerminal() { return openDescriptor("/dev/tty", O_RDWR | O_NOCTTY); }

bool hasStandardTerminal() { return ::isatty(STDIN_FILENO) && ::isatty(STDERR_FILENO); }

/// A failure has no better place to be reported.
void print(int file, std::string_view text) { (void)writeAll(file, text); }

/// Title and text on lines of their own. The terminal must not take anything in them for a command.
std::string asLines(const Message& message) {
    std::string lines;
    for (const char character : message.title + "\n" + message.text) {
        const auto code = static_cast<unsigned char>(character);
        const bool isControl = (code < 0x20 && character != '\n' && character != '\t') || code == 0x7f;
        // In UTF-8 they follow C2; some terminals also obey one alone.
        const bool isLateControl = code >= 0x80 && code < 0xa0;
        const bool isPart =
            isLateControl && !lines.empty() && static_cast<unsigned char>(lines.back()) >= 0x80;
        if (isPart && lines.ends_with('\xc2'))
            lines.pop_back();
        else if (!isControl && (!isLateControl || isPart))
            lines += character;
    }
    return lines;
}

/// Reads one line and says whether it starts with "y".
bool readYes(int input) {
    char first = '\0';
    char character = '\0';
    while (uninterrupted([&] { return ::read(input, &character, 1); }) == 1 && character != '\n')
        if (first == '\0' && character != ' ')
            first = character;
    return first == 'y' || first == 'Y';
}

} // namespace

MessageAnswer TerminalMessageBoxes::show(const Message& message) {
    if (message.buttons == MessageButtons::ok) {
        print(STDERR_FILENO, asLines(message) + "\n");
        return MessageAnswer::ok;
    }
    const Descriptor terminal = openTerminal();
    if (!terminal && !hasStandardTerminal())
        return MessageAnswer::no;
    print(terminal ? terminal.number() : STDERR_FILENO, asLines(message) + " [y/N] ");
    return readYes(terminal ? terminal.number() : STDIN_FILENO) ? MessageAnswer::yes : MessageAnswer::no;
}

bool TerminalMessageBoxes::attended() { return openTerminal() || hasStandardTerminal(); }

} // namespace qrtVistrelClasses4
