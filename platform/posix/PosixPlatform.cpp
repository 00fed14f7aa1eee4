// The services of a POSIX system.
#include "platform/FileRegistryStore.h"
#include "platform/Home.h"
#include "platform/IniProfileFile.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/TerminalMessageBoxes.h"
#include "platform/posix/PosixCalendar.h"
#include "platform/posix/PosixConsole.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixFolders.h"
#include "platform/posix/PosixInspection.h"

#include <ctime>
#include <mutex>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

class PosixPlatform final : public Platform {
public:
    explicit PosixPlatform(const PlatformOptions& options)
        : home_(fullHome(options.home ? options.home : replacedHome())),
          library_(ownFolder(home_, dataFolder())), settings_(ownFolder(home_, configurationFolder())),
          state_(ownFolder(home_, stateFolder())) {}

    FileSystem& files() override { return files_; }
    RegistryStore& registry() override { return registry_; }
    MessageBoxes& messageBoxes() override { return boxes_; }
    Console& console() override { return console_; }
    Inspection& inspection() override { return inspection_; }

    using Platform::openProfile;
    std::unique_ptr<ProfileFile> openProfile(const std::string& path, const std::string& original) override {
        return std::make_unique<IniProfileFile>(files_, profiles_, path, original);
    }
    std::string systemProfilePath() override { return JoinPath(settings_, kSystemProfile); }

    std::string libraryFolder() override { return library_; }
    std::optional<std::string> logFolder() override { return home_ ? std::nullopt : std::optional(state_); }
    std::vector<std::string> otherFolders(FileUse use) override;
    std::optional<std::string> specialFolder(int number) override;
    std::optional<std::string> environmentVariable(const std::string& name) override {
        return environment(name.c_str());
    }
    LocalTime localTime() override;
    CalendarNames calendarNames() override {
        std::call_once(calendarIsRead_, [this] { calendarNames_ = PosixCalendarNames(""); });
        return calendarNames_;
    }

private:
    static std::optional<std::string> fullHome(const std::optional<std::string>& folder) {
        PosixFileSystem files;
        return FullHome(files, folder);
    }
    static std::string ownFolder(const std::optional<std::string>& home, const std::string& usersFolder) {
        return home ? *home : JoinPath(usersFolder, "qrtVistrelClasses4");
    }

    const std::string program_ = moduleFolder();
    const std::optional<std::string> home_; ///< The full name of what replaces all folders of the user.
    const std::string library_;
    const std::string settings_; ///< The folder of the settings store.
    const std::string state_;
    PosixFileSystem files_{OwnFolders({library_, settings_, state_})};
    IniFileCache profiles_{files_};
    FileRegistryStore registry_{files_, JoinPath(settings_, kRegistryFile)};
    TerminalMessageBoxes boxes_;
    PosixConsole console_;
    PosixInspection inspection_;
    std::once_flag calendarIsRead_;
    CalendarNames calendarNames_; ///< Those of the user's language; the system reads files for them.
};

std::vector<std::string> PosixPlatform::otherFolders(FileUse use) {
    std::vector<std::string> folders;
    if (!home_)
        folders.push_back(program_); // where earlier versions kept everything
    if (use == FileUse::onlyRead)
        folders.push_back(SharedFolder(program_));
    return folders;
}

std::optional<std::string> PosixPlatform::specialFolder(int number) {
    if (!home_)
        return userFolder(files_, number);
    return FindUserFolder(number) ? home_ : std::nullopt;
}

LocalTime PosixPlatform::localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    ::localtime_r(&now, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
            parts.tm_min,         parts.tm_sec,     parts.tm_wday};
}

} // namespace

std::unique_ptr<Platform> makePlatform(const PlatformOptions& options) {
    return std::make_unique<PosixPlatform>(options);
}

} // namespace qrtVistrelClasses4
