#include "platform/windows/WindowsConsole.h"

#include "platform/TemporaryFiles.h"
#include "platform/Wildcards.h"
#include "platform/windows/CommandLine.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsNames.h"
#include "platform/windows/WindowsSystem.h"

#include <qrtVistrelClasses4/Utf8.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

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

bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return handle && ::GetConsoleMode(handle, &mode);
}

SystemError writeBytes(HANDLE handle, std::string_view text) {
    constexpr std::size_t largestPiece = std::size_t{1} << 20;
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

SystemError writeToConsole(HANDLE handle, std::wstring_view text) {
    constexpr std::size_t largestPiece = 8192; // some consoles refuse more than 64 KiB
    while (!text.empty()) {
        DWORD written = 0;
        std::size_t size = std::min(text.size(), largestPiece);
        if (size > 1 && IS_HIGH_SURROGATE(text[size - 1]))
            --size; // the other half of the character comes next
        if (!::WriteConsoleW(handle, text.data(), static_cast<DWORD>(size), &written, nullptr))
            return lastSystemError();
        if (written == 0)
            return SystemError::deviceFailure;
        text.remove_prefix(written);
    }
    return SystemError::none;
}

/// The size of `utf8` without a character at its end that may be cut short.
std::size_t sizeOfWholeCharacters(std::string_view utf8) {
    constexpr std::size_t longest = 4;
    for (std::size_t size = 1; size < longest && size <= utf8.size(); ++size) {
        const auto byte = static_cast<unsigned char>(utf8[utf8.size() - size]);
        if (byte >= 0xc0) // the first byte of several
            return size < (byte < 0xe0 ? 2u : byte < 0xf0 ? 3u : 4u) ? utf8.size() - size : utf8.size();
        if (byte < 0x80)
            break;
    }
    return utf8.size();
}

/// Called when the user ends the program or closes its window. The system ends it afterwards, and until then
/// no more temporary files are made.
BOOL WINAPI removeTemporaryFiles(DWORD) {
    TemporaryFilesInTheMaking().lock();
    ForEachTemporaryFile([](const char* path) {
        constexpr int mostTries = 100; // while the system copies a file, nobody can remove it
        constexpr DWORD pause = 10;    // milliseconds
        for (int tries = 0; tries < mostTries && !::DeleteFileW(WideName(path).c_str()) &&
                            ::GetLastError() == ERROR_SHARING_VIOLATION;
             ++tries)
            ::Sleep(pause);
    });
    return FALSE;
}

/// Lets `std::getenv` give names in UTF-8. It reads a copy that the C library has made with the code page.
void takeVariableAsName(const wchar_t* name) {
    if (const std::wstring value = WideEnvironment(name); !value.empty())
        (void)::_putenv((Utf8FromWide(name) + "=" + NameFromWide(value)).c_str());
}

} // namespace

std::mutex& TemporaryFilesInTheMaking() {
    static std::mutex& mutex = *new std::mutex; // outlives the objects of the program
    return mutex;
}

bool IsPseudoTerminal(StandardStream stream) {
    const HANDLE handle = handleOf(stream);
    struct {
        DWORD size;
        wchar_t text[MAX_PATH];
    } name{};
    if (!handle || ::GetFileType(handle) != FILE_TYPE_PIPE ||
        !::GetFileInformationByHandleEx(handle, FileNameInfo, &name, sizeof name))
        return false;
    const std::wstring_view text(name.text, std::min<std::size_t>(name.size / sizeof(wchar_t), MAX_PATH));
    return (text.starts_with(L"\\msys-") || text.starts_with(L"\\cygwin-")) &&
           text.find(L"-pty") != text.npos;
}

bool WindowsConsole::isTerminal(StandardStream stream) {
    const HANDLE handle = handleOf(stream);
    DWORD mode = 0;
    if (handle && ::GetConsoleMode(handle, &mode))
        return (mode & kUnderstandsEscapeSequences) != 0 ||
               ::SetConsoleMode(handle, mode | kUnderstandsEscapeSequences);
    return IsPseudoTerminal(stream);
}

Terminal WindowsConsole::terminal() {
    Terminal terminal = TerminalOfEnvironment();
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    if (!::GetConsoleScreenBufferInfo(handleOf(StandardStream::output), &screen))
        return terminal;
    terminal.columns = static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left) + 1;
    terminal.hasSymbols = true;
    if (isTerminal(StandardStream::output)) // which takes escape sequences, so that it has all colours
        terminal.colors = ColorDepth::full;
    return terminal;
}

SystemError WindowsConsole::write(StandardStream stream, std::string_view text) {
    const HANDLE handle = handleOf(stream);
    if (!handle)
        return SystemError::unsupported;
    if (!isConsole(handle))
        return writeBytes(handle, text);
    std::string& cut = cutCharacters_.at(static_cast<std::size_t>(stream));
    const std::string whole = cut.append(text);
    const std::size_t size = sizeOfWholeCharacters(whole);
    cut = whole.substr(size);
    return writeToConsole(handle, WideFromUtf8(std::string_view(whole).substr(0, size)));
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

std::vector<std::string> StartProgram(int, const char* const*) {
    SetNamesUtf8(true);
    StartNotingTemporaryFiles();
    (void)TemporaryFilesInTheMaking();
    ::SetConsoleCtrlHandler(&removeTemporaryFiles, TRUE);
    takeVariableAsName(L"VISTREL_HOME");
    // The arguments of `main` have lost what the code page lacks.
    std::vector<std::string> arguments;
    WindowsFileSystem files;
    for (const CommandLineWord& word : WordsOfCommandLine(::GetCommandLineW())) {
        std::string argument = Utf8FromWide(word.text);
        if (word.hasQuotedWildcard || argument.starts_with('-'))
            arguments.push_back(std::move(argument));
        else
            std::ranges::move(ExpandWildcards(files, argument), std::back_inserter(arguments));
    }
    return arguments;
}

} // namespace qrtVistrelClasses4
