#include "platform/TerminalMessageBoxes.h"

#include "platform/FileNames.h"
#include "platform/windows/WindowsConsole.h"
#include "platform/windows/WindowsNames.h"
#include "platform/windows/WindowsSystem.h"

#include <array>

namespace qrtVistrelClasses4 {
namespace {

FileHandle openConsole(const wchar_t* device) {
    return FileHandle(::CreateFileW(device, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
}
FileHandle openInput() { return openConsole(L"CONIN$"); }

bool isPseudoTerminal() {
    return IsPseudoTerminal(StandardStream::input) && IsPseudoTerminal(StandardStream::error);
}

} // namespace

void TerminalMessageBoxes::print(const std::string& text) {
    (void)WindowsConsole().write(StandardStream::error, Utf8FromName(text));
}

std::string TerminalMessageBoxes::ask(const std::string& question) {
    std::array<wchar_t, 256> line{};
    DWORD size = 0;
    if (isPseudoTerminal()) { // beside which there may be a console that nobody sees
        print(question);
        std::array<char, 256> bytes{};
        ::ReadFile(::GetStdHandle(STD_INPUT_HANDLE), bytes.data(), bytes.size(), &size, nullptr);
        return {bytes.data(), size};
    }
    const FileHandle input = openInput(), output = openConsole(L"CONOUT$");
    if (!input || !output)
        return {};
    const std::wstring text = WideFromUtf8(Utf8FromName(question));
    ::WriteConsoleW(output.get(), text.data(), static_cast<DWORD>(text.size()), &size, nullptr);
    ::ReadConsoleW(input.get(), line.data(), static_cast<DWORD>(line.size()), &size, nullptr);
    return Utf8FromWide({line.data(), size});
}

bool TerminalMessageBoxes::attended() { return isPseudoTerminal() || openInput(); }

} // namespace qrtVistrelClasses4
