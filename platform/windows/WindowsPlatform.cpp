// The services of Windows.
#include "platform/CodePage.h"
#include "platform/FileNames.h"
#include "platform/FileRegistryStore.h"
#include "platform/Home.h"
#include "platform/IniProfileFile.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/TerminalMessageBoxes.h"
#include "platform/windows/WindowsCalendar.h"
#include "platform/windows/WindowsConsole.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsInspection.h"
#include "platform/windows/WindowsMessageBoxes.h"
#include "platform/windows/WindowsNames.h"
#include "platform/windows/WindowsProfileFile.h"
#include "platform/windows/WindowsRegistryStore.h"

#include <array>

#include <windows.h>

#include <shlobj.h>

namespace qrtVistrelClasses4 {
namespace {

/// The folder of the program or DLL that holds this code.
std::string moduleFolder() {
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    ::GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&moduleFolder), &module);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return FolderOf(NameFromWide(path));
        }
        path.resize(path.size() * 2);
    }
}

struct FreeItemList {
    void operator()(ITEMIDLIST* list) const { ::CoTaskMemFree(list); }
};

class WindowsPlatform final : public Platform {
public:
    explicit WindowsPlatform(const PlatformOptions& options) : home_(fullHome(options.home)) {
        if (home_)
            registry_ = std::make_unique<FileRegistryStore>(files_, JoinPath(*home_, kRegistryFile));
        else
            registry_ = std::make_unique<WindowsRegistryStore>();
    }

    FileSystem& files() override { return files_; }
    RegistryStore& registry() override { return *registry_; }
    MessageBoxes& messageBoxes() override {
        const bool isProgram = AreNamesUtf8();
        return isProgram ? static_cast<MessageBoxes&>(consoleBoxes_) : boxes_;
    }
    Console& console() override { return console_; }
    Inspection& inspection() override { return inspection_; }

    using Platform::openProfile;
    std::unique_ptr<ProfileFile> openProfile(const std::string& path, const std::string& original) override {
        // The system's functions for values in 8-bit texts take names in the code page only.
        const auto systemsName = AreNamesUtf8() ? CodePageFromUtf8(Utf8FromName(path)) : path;
        if (home_ || !systemsName)
            return std::make_unique<IniProfileFile>(files_, profiles_, path, original);
        return std::make_unique<WindowsProfileFile>(*systemsName);
    }
    std::string systemProfilePath() override {
        return home_ ? JoinPath(*home_, kSystemProfile) : std::string(kSystemProfile);
    }

    std::string libraryFolder() override;
    std::optional<std::string> logFolder() override { return std::nullopt; }
    std::vector<std::string> otherFolders(FileUse use) override {
        // Other people's programs keep to the library's folder.
        const bool readsMore = home_ || AreNamesUtf8();
        return readsMore && use == FileUse::onlyRead ? std::vector{SharedFolder(moduleFolder())}
                                                     : std::vector<std::string>();
    }
    std::optional<std::string> specialFolder(int number) override;
    std::optional<std::string> environmentVariable(const std::string& name) override {
        const std::wstring value = WideEnvironment(WideFromUtf8(name).c_str());
        return value.empty() ? std::nullopt : std::optional(NameFromWide(value));
    }
    LocalTime localTime() override;
    CalendarNames calendarNames() override { return WindowsCalendarNames(LOCALE_USER_DEFAULT); }

private:
    static std::optional<std::string> fullHome(const std::optional<std::string>& folder) {
        WindowsFileSystem files;
        return FullHome(files, folder);
    }

    const std::optional<std::string> home_; ///< The full name of what replaces the places of the system.
    WindowsFileSystem files_{home_ ? OwnFolders({*home_}) : OwnFolders()};
    IniFileCache profiles_{files_};
    std::unique_ptr<RegistryStore> registry_;
    WindowsMessageBoxes boxes_;
    TerminalMessageBoxes consoleBoxes_;
    WindowsConsole console_;
    WindowsInspection inspection_{files_};
};

std::string WindowsPlatform::libraryFolder() { return home_ ? *home_ : moduleFolder(); }

std::optional<std::string> WindowsPlatform::specialFolder(int number) {
    if (home_)
        return FindUserFolder(number) ? home_ : std::nullopt;
    ITEMIDLIST* list = nullptr;
    if (::SHGetSpecialFolderLocation(nullptr, number, &list) != S_OK)
        return {};
    const std::unique_ptr<ITEMIDLIST, FreeItemList> owned(list);
    std::array<wchar_t, MAX_PATH> path{};
    if (::SHGetPathFromIDListW(list, path.data()) != TRUE)
        return {};
    return NameFromWide(path.data());
}

LocalTime WindowsPlatform::localTime() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wDayOfWeek};
}

} // namespace

std::unique_ptr<Platform> makePlatform(const PlatformOptions& options) {
    return std::make_unique<WindowsPlatform>(options);
}

} // namespace qrtVistrelClasses4
