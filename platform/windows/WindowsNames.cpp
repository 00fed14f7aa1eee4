#include "platform/windows/WindowsNames.h"

#include "platform/CodePage.h"
#include "platform/FileNames.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"

#include <qrtVistrelClasses4/Utf8.h>

#include <algorithm>
#include <atomic>

#include <windows.h>

namespace qrtVistrelClasses4 {
namespace {

std::atomic<bool> areNamesUtf8 = false;

constexpr UINT kWestEuropean = 1252;

/// The code page of names that are not in UTF-8. Some systems have UTF-8 for their ANSI code page. The
/// library has always written names into its exports as if the page were 1252, which only programs mend.
UINT namePage() {
    const UINT page = ::GetACP();
    return page == CP_UTF8 || !areNamesUtf8 ? kWestEuropean : page;
}

/// The code page that the system's functions for 8-bit names use in this process.
UINT pageOfFileFunctions() { return ::AreFileApisANSI() ? CP_ACP : CP_OEMCP; }

std::wstring wideFrom(UINT page, std::string_view text) {
    const auto size = static_cast<int>(text.size());
    const int wideSize = ::MultiByteToWideChar(page, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(wideSize), L'\0');
    ::MultiByteToWideChar(page, 0, text.data(), size, wide.data(), wideSize);
    return wide;
}

/// `hasLoss`, if it is not null, becomes true if the page lacks a character.
std::string textFrom(UINT page, DWORD flags, std::wstring_view wide, BOOL* hasLoss = nullptr) {
    const auto wideSize = static_cast<int>(wide.size());
    const int size = ::WideCharToMultiByte(page, flags, wide.data(), wideSize, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(page, flags, wide.data(), wideSize, text.data(), size, nullptr, hasLoss);
    return text;
}

/// The full name with the prefix that keeps the system from looking at its length.
std::wstring unlimited(const std::wstring& name) {
    constexpr std::wstring_view prefix = L"\\\\?\\", network = L"\\\\", device = L"\\\\.\\";
    const DWORD room = ::GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    const DWORD size = ::GetFullPathNameW(name.c_str(), room, full.data(), nullptr);
    if (size == 0 || size >= room)
        return name;
    full.resize(size);
    if (full.starts_with(prefix) || full.starts_with(device))
        return full;
    return full.starts_with(network) ? std::wstring(L"\\\\?\\UNC") + full.substr(1) : prefix.data() + full;
}

/// Whether a name might be one of a device: only then the system is asked.
bool maybeDevice(std::string_view name) {
    constexpr std::size_t shortest = 3, longest = 7; // NUL, CONOUT$
    const std::size_t size = std::min(name.find_first_of(".: "), name.size());
    if (size < shortest || size > longest)
        return false;
    constexpr std::string_view starts[] = {"NUL", "CON", "PRN", "AUX", "COM", "LPT"};
    return std::ranges::any_of(starts, [&](std::string_view start) {
        return EqualIgnoringAsciiCase(name.substr(0, shortest), start);
    });
}

} // namespace

void SetNamesUtf8(bool areUtf8) { areNamesUtf8 = areUtf8; }
bool AreNamesUtf8() { return areNamesUtf8; }

std::string TakeCodePageCharacter(std::string_view& name) {
    const UINT page = namePage();
    const bool isDouble = name.size() > 1 && ::IsDBCSLeadByteEx(page, static_cast<BYTE>(name.front()));
    const std::string_view character = name.substr(0, isDouble ? 2 : 1);
    name.remove_prefix(character.size());
    return page == kWestEuropean ? Utf8FromAnsi(character) : Utf8FromWide(wideFrom(page, character));
}

std::optional<std::string> CodePageFromUtf8(std::string_view utf8) {
    BOOL hasLoss = FALSE;
    if (namePage() == kWestEuropean)
        return AnsiFromUtf8(utf8);
    std::string text = textFrom(namePage(), WC_NO_BEST_FIT_CHARS, WideFromUtf8(utf8), &hasLoss);
    return hasLoss ? std::nullopt : std::optional(std::move(text));
}

std::wstring WideFromUtf8(std::string_view utf8) { return wideFrom(CP_UTF8, utf8); }
std::string Utf8FromWide(std::wstring_view wide) { return textFrom(CP_UTF8, 0, wide); }

std::wstring WideName(std::string_view name) {
    constexpr std::size_t longestUsual = MAX_PATH - 13; // a folder needs room for a short name in it
    if (!AreNamesUtf8())
        return wideFrom(pageOfFileFunctions(), name);
    std::wstring wide = WideFromUtf8(Utf8FromName(name));
    return wide.size() > longestUsual ? unlimited(wide) : wide;
}

std::string NameFromWide(std::wstring_view wide) {
    return AreNamesUtf8() ? Utf8FromWide(wide) : textFrom(pageOfFileFunctions(), 0, wide);
}

std::wstring WideEnvironment(const wchar_t* name) {
    std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    if (!value.empty())
        value.resize(std::min<std::size_t>(
            ::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())), value.size()));
    return value;
}

bool IsDeviceName(std::string_view name) {
    if (!maybeDevice(SplitPath(name).name))
        return false;
    constexpr std::wstring_view devices = L"\\\\.\\";
    std::wstring full(devices.size() + 1, L'\0');
    const std::wstring wide = WideName(name);
    full.resize(::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr));
    ::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    return full.starts_with(devices);
}

} // namespace qrtVistrelClasses4
