// The services of a POSIX system.
#include "platform/IniProfileFile.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/posix/PosixCalendar.h"
#include "platform/posix/PosixConsole.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixFolders.h"
#include "platform/posix/PosixInspection.h"
#include "platform/posix/PosixRegistryStore.h"
#include "platform/posix/PosixSystem.h"
#include "platform/posix/TerminalMessageBoxes.h"

#include <ctime>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

/// Commits under a lock, so that two programs that save at the same time keep each other's keys.
class LockedProfileFile final : public IniProfileFile {
public:
    LockedProfileFile(PosixFileSystem& machineFiles, IniFileCache& cache, const std::string& name,
                      const std::string& original)
        : IniProfileFile(machineFiles, cache, name, original), machineFiles_(machineFiles) {}

    SystemError commit() override {
        if (const auto error = machineFiles_.makeOwnFolderOf(path()); error != SystemError::none)
            return error;
        lock_.emplace(folderToLock());
        const SystemError error = IniProfileFile::commit();
        lock_.reset();
        return error;
    }

protected:
    SystemError replace(ReplacementFile& file) override { return lock_->commit(file); }

private:
    /// The one that holds the file itself, whatever link leads to it.
    std::string folderToLock() {
        struct stat status {};
        const bool isNoLink = lookAt(path(), status) && !S_ISLNK(status.st_mode);
        return folderOf(isNoLink ? path() : files().resolveLinks(files().existingName(path())));
    }

    PosixFileSystem& machineFiles_;
    std::optional<FolderLock> lock_; ///< During a commit.
};

std::string withoutTrailingSeparators(std::string folder) {
    while (folder.size() > 1 && folder.back() == kPathSeparator)
        folder.pop_back();
    return folder;
}

class PosixPlatform final : public Platform {
public:
    explicit PosixPlatform(const PlatformOptions& options)
        : home_(fullName(options.home ? options.home : replacedHome())),
          library_(ownFolder(home_, dataFolder())), settings_(ownFolder(home_, configurationFolder())) {}

    FileSystem& files() override { return files_; }
    RegistryStore& registry() override { return registry_; }
    MessageBoxes& messageBoxes() override { return boxes_; }
    Console& console() override { return console_; }
    Inspection& inspection() override { return inspection_; }
    std::string registryFile() override { return registryPath_; }

    using Platform::openProfile;
    std::unique_ptr<ProfileFile> openProfile(const std::string& path, const std::string& original) override {
        return std::make_unique<LockedProfileFile>(files_, profiles_, path, original);
    }
    std::string systemProfilePath() override { return JoinPath(settings_, "win.ini"); }

    std::string libraryFolder() override { return library_; }
    std::vector<std::string> otherFolders(FileUse use) override;
    std::optional<std::string> specialFolder(int number) override;
    LocalTime localTime() override;
    CalendarNames calendarNames() override { return PosixCalendarNames(""); }

private:
    static std::string ownFolder(const std::optional<std::string>& home, const std::string& usersFolder) {
        return home ? *home : JoinPath(usersFolder, "qrtVistrelClasses4");
    }
    static std::optional<std::string> fullName(const std::optional<std::string>& folder) {
        if (!folder)
            return std::nullopt;
        return withoutTrailingSeparators(PosixFileSystem().fullName(*folder));
    }

    const std::string program_ = moduleFolder();
    const std::optional<std::string> home_; ///< The full name of what replaces all folders of the user.
    const std::string library_;
    const std::string settings_; ///< The folder of the settings store.
    PosixFileSystem files_{{library_, settings_}};
    IniFileCache profiles_{files_};
    const std::string registryPath_ = JoinPath(settings_, "registry");
    PosixRegistryStore registry_{files_, registryPath_,
                                 [&] { return files_.makeOwnFolderOf(registryPath_); }};
    TerminalMessageBoxes boxes_;
    PosixConsole console_;
    PosixInspection inspection_;
};

std::vector<std::string> PosixPlatform::otherFolders(FileUse use) {
    std::vector<std::string> folders;
    if (!home_)
        folders.push_back(program_); // where earlier versions kept everything
    if (use == FileUse::onlyRead)
        folders.push_back(sharedFolder(program_));
    return folders;
}

std::optional<std::string> PosixPlatform::specialFolder(int number) {
    if (!home_)
        return userFolder(files_, number);
    return isUserFolder(number) ? home_ : std::nullopt;
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
