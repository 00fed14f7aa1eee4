// The services of Windows.
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/windows/WindowsCalendar.h"
#include "platform/windows/WindowsConsole.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsInspection.h"
#include "platform/windows/WindowsMessageBoxes.h"
#include "platform/windows/WindowsProfileFile.h"
#include "platform/windows/WindowsRegistryStore.h"

#include <array>

#include <windows.h>

#include <shlobj.h>

namespace qrtVistrelClasses4 {
namespace {

/// File name of the program or DLL that holds this code.
std::string modulePath() {
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    ::GetModuleHandleExA(flags, reinterpret_cast<const char*>(&modulePath), &module);
    std::string path(MAX_PATH, '\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

struct FreeItemList {
    void operator()(ITEMIDLIST* list) const { ::CoTaskMemFree(list); }
};

class WindowsPlatform final : public Platform {
public:
    FileSystem& files() override { return files_; }
    RegistryStore& registry() override { return registry_; }
    MessageBoxes& messageBoxes() override { return boxes_; }
    Console& console() override { return console_; }
    Inspection& inspection() override { return inspection_; }

    std::unique_ptr<ProfileFile> openProfile(const std::string& path, const std::string&) override {
        return std::make_unique<WindowsProfileFile>(path);
    }
    std::string systemProfilePath() override { return "win.ini"; }

    std::string libraryFolder() override;
    std::vector<std::string> otherFolders(FileUse) override { return {}; }
    std::optional<std::string> specialFolder(int number) override;
    LocalTime localTime() override;
    CalendarNames calendarNames() override { return WindowsCalendarNames(LOCALE_USER_DEFAULT); }

private:
    WindowsFileSystem files_;
    WindowsRegistryStore registry_;
    WindowsMessageBoxes boxes_;
    WindowsConsole console_;
    WindowsInspection inspection_{files_};
};

std::string WindowsPlatform::libraryFolder() {
    const std::string path = modulePath();
    std::string_view folder = SplitPath(path).folder;
    constexpr std::size_t rootLength = 3; // "C:\"
    if (folder.size() > rootLength)
        folder.remove_suffix(1);
    return std::string(folder);
}

std::optional<std::string> WindowsPlatform::specialFolder(int number) {
    ITEMIDLIST* list = nullptr;
    if (::SHGetSpecialFolderLocation(nullptr, number, &list) != S_OK)
        return {};
    const std::unique_ptr<ITEMIDLIST, FreeItemList> owned(list);
    std::array<char, MAX_PATH> path{};
    if (::SHGetPathFromIDListA(list, path.data()) != TRUE)
        return {};
    return path.data();
}

LocalTime WindowsPlatform::localTime() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wDayOfWeek};
}

} // namespace

std::unique_ptr<Platform> makePlatform(const PlatformOptions&) { return std::make_unique<WindowsPlatform>(); }

} // namespace qrtVistrelClasses4
