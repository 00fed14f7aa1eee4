#include "platform/TerminalMessageBoxes.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

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

bool isYes(const std::string& line) {
    const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
    return line.compare(first, 1, "y") == 0 || line.compare(first, 1, "Y") == 0;
}

} // namespace

MessageAnswer TerminalMessageBoxes::show(const Message& message) {
    if (message.buttons == MessageButtons::ok) {
        print(asLines(message) + "\n");
        return MessageAnswer::ok;
    }
    return isYes(ask(asLines(message) + " [y/N] ")) ? MessageAnswer::yes : MessageAnswer::no;
}

} // namespace qrtVistrelClasses4
