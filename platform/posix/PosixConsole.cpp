#include "platform/posix/PosixConsole.h"

#include "platform/TemporaryFiles.h"
#include "platform/posix/PosixSystem.h"

#include <array>
#include <csignal>
#include <sys/ioctl.h>
#include <unistd.h>

namespace qrtVistrelClasses4 {
namespace {

int descriptorOf(StandardStream stream) {
    switch (stream) {
    case StandardStream::input:
        return STDIN_FILENO;
    case StandardStream::output:
        return STDOUT_FILENO;
    case StandardStream::error:
        break;
    }
    return STDERR_FILENO;
}

/// Ends the process by the signal, without its temporary files.
extern "C" void endBySignal(int number) {
    ForEachTemporaryFile([](const char* path) { (void)::unlink(path); });
    (void)std::signal(number, SIG_DFL);
    (void)std::raise(number); // comes when this function has returned
}

/// A signal that whoever started the program ignores stays ignored, as for "nohup".
void handleEndingSignals() {
    StartNotingTemporaryFiles();
    struct sigaction action {};
    action.sa_handler = &endBySignal;
    (void)::sigemptyset(&action.sa_mask);
    for (const int number : kEndingSignals)
        (void)::sigaddset(&action.sa_mask, number);
    for (const int number : kEndingSignals) {
        struct sigaction before {};
        if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            (void)::sigaction(number, &action, nullptr);
    }
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

Result<std::string> PosixConsole::read(std::size_t most) {
    std::string all;
    std::array<char, 65536> piece;
    for (;;) {
        const ssize_t count = uninterrupted([&] { return ::read(STDIN_FILENO, piece.data(), piece.size()); });
        if (count == -1)
            return errorOn({});
        if (count == 0)
            return all;
        all.append(piece.data(), static_cast<std::size_t>(count));
        if (all.size() > most)
            return SystemError::tooLarge;
    }
}

std::vector<std::string> StartProgram(int argumentCount, const char* const* arguments) {
    std::signal(SIGPIPE, SIG_IGN);
    handleEndingSignals();
    return {arguments + (argumentCount > 0 ? 1 : 0), arguments + argumentCount};
}

} // namespace qrtVistrelClasses4
