#include "platform/posix/PosixConsole.h"

#include "platform/posix/PosixSystem.h"

#include <csignal>
#include <sys/ioctl.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

int descriptorOf(StandardStream stream) {
    return stream == StandardStream::output ? STDOUT_FILENO : STDERR_FILENO;
}

} // namespace

bool PosixConsole::isTerminal(StandardStream stream) { return ::isatty(descriptorOf(stream)) == 1; }

Terminal PosixConsole::terminal() {
    Terminal terminal = TerminalOfEnvironment();
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        terminal.columns = size.ws_col;
    return terminal;
}

SystemError PosixConsole::write(StandardStream stream, std::string_view text) {
    const bool isDone = writeAll(descriptorOf(stream), text) || errno == EPIPE;
    return isDone ? SystemError::none : errorOn({});
}

std::vector<std::string> StartProgram(int argumentCount, const char* const* arguments) {
    std::signal(SIGPIPE, SIG_IGN);
    return {arguments + (argumentCount > 0 ? 1 : 0), arguments + argumentCount};
}

} // namespace qrtVistrelClasses4
