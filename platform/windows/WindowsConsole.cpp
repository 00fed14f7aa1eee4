#include "platform/windows/WindowsConsole.h"

#include "platform/TemporaryFiles.h"
#include "platform/windows/WindowsSystem.h"

#include <algorithm>
#include <array>

namespace qrtVistrelClasses4 {
namespace {

constexpr DWORD kUnderstandsEscapeSequences = 4; // not named in every set of system headers

/// Null if the process has no such stream, as is usual for programs with windows.
HANDLE handleOf(StandardStream stream) {
    const HANDLE handle = ::GetStdHandle(stream == StandardStream::input    ? STD_INPUT_HANDLE
                                         : stream == StandardStream::output ? STD_OUTPUT_HANDLE
                                                                            : STD_ERROR_HANDLE);
    return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

bool hasOtherEndGone(DWORD code) {
    return code == ERROR_BROKEN_PIPE || code == ERROR_NO_DATA || code == ERROR_PIPE_NOT_CONNECTED;
}

/// Called when the user ends the program. The system ends it afterwards.
BOOL WINAPI removeTemporaryFiles(DWORD) {
    ForEachTemporaryFile([](const char* path) { ::DeleteFileA(path); });
    return FALSE;
}

} // namespace

bool WindowsConsole::isTerminal(StandardStream stream) {
    const HANDLE handle = handleOf(stream);
    DWORD mode = 0;
    return handle && ::GetConsoleMode(handle, &mode) &&
           ((mode & kUnderstandsEscapeSequences) != 0 ||
            ::SetConsoleMode(handle, mode | kUnderstandsEscapeSequences));
}

Terminal WindowsConsole::terminal() {
    Terminal terminal = TerminalOfEnvironment();
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    if (::GetConsoleScreenBufferInfo(handleOf(StandardStream::output), &screen)) {
        const int columns = screen.srWindow.Right - screen.srWindow.Left + 1;
        terminal.columns = static_cast<std::size_t>(columns);
    }
    terminal.hasSymbols = ::GetConsoleOutputCP() == CP_UTF8;
    if (isTerminal(StandardStream::output)) // which takes escape sequences, so that it has all colours
        terminal.colors = ColorDepth::full;
    return terminal;
}

SystemError WindowsConsole::write(StandardStream stream, std::string_view text) {
    constexpr std::size_t largestPiece = 32768; // some consoles refuse more
    const HANDLE handle = handleOf(stream);
    if (!handle)
        return SystemError::unsupported;
    while (!text.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(text.size(), largestPiece));
        if (!::WriteFile(handle, text.data(), size, &written, nullptr))
            return hasOtherEndGone(::GetLastError()) ? SystemError::none : lastSystemError();
        if (written == 0)
            return SystemError::diskFull;
        text.remove_prefix(written);
    }
    return SystemError::none;
}

Result<std::string> WindowsConsole::read(std::size_t most) {
    const HANDLE handle = handleOf(StandardStream::input);
    if (!handle)
        return SystemError::unsupported;
    std::string all;
    std::array<char, 32768> piece;
    for (;;) {
        DWORD count = 0;
        // The end of a pipe is an error.
        if (!::ReadFile(handle, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) &&
            !hasOtherEndGone(::GetLastError()))
            return lastSystemError();
        if (count == 0)
            return all;
        all.append(piece.data(), count);
        if (all.size() > most)
            return SystemError::tooLarge;
    }
}

std::vector<std::string> StartProgram(int argumentCount, const char* const* arguments) {
    StartNotingTemporaryFiles();
    ::SetConsoleCtrlHandler(&removeTemporaryFiles, TRUE);
    return {arguments + (argumentCount > 0 ? 1 : 0), arguments + argumentCount};
}

} // namespace qrtVistrelClasses4
