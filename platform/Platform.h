// Everything the library asks of the machine it runs on.
#pragma once

#include "platform/Console.h"
#include "platform/FileSystem.h"
#include "platform/Inspection.h"
#include "platform/ProfileFile.h"
#include "platform/RegistryStore.h"
#include <qrtVistrelClasses4/MessageBoxes.h>
#include <qrtVistrelClasses4/ScopedInstallation.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// Shell number of the user's documents folder.
inline constexpr int kDocumentsFolder = 5;
/// Shell number of the user's local application data, which POSIX systems and homes have not.
inline constexpr int kLocalDataFolder = 28;

/// A moment in the user's time zone.
struct LocalTime {
    int year = 0;    ///< With the century.
    int month = 0;   ///< 1 to 12.
    int day = 0;     ///< 1 to 31.
    int hour = 0;    ///< 0 to 23.
    int minute = 0;  ///< 0 to 59.
    int second = 0;  ///< 0 to 60.
    int weekday = 0; ///< 0 (Sunday) to 6.
};

/// How the user's locale writes dates and times; 8-bit texts of the ANSI code page.
struct CalendarNames {
    std::array<std::string, 12> months;      ///< From January.
    std::array<std::string, 12> shortMonths; ///< From January.
    std::array<std::string, 7> weekdays;     ///< From Sunday.
    std::string morning;                     ///< Mark of hours before noon; empty in locales without one.
    std::string afternoon;
    std::string dateSeparator;
    std::string timeSeparator;
};

/// The names of the English locale.
CalendarNames EnglishCalendarNames();

/// What a file of the library is for.
enum class FileUse {
    kept,     ///< The library writes it, as a list of signs.
    onlyRead, ///< It comes with the program, as a font, or from its user.
};

/// The services of a machine. The platform owns them, and several threads may use them at the same time.
class Platform {
public:
    virtual ~Platform() = default;

    virtual FileSystem& files() = 0;
    virtual RegistryStore& registry() = 0;
    virtual MessageBoxes& messageBoxes() = 0;
    virtual Console& console() = 0;
    virtual Inspection& inspection() = 0;

    /// Opens the INI file `path`. While it is missing, the file `original`, if there is one, is read in its
    /// place; the first change makes `path` of it. On Windows without a home there never is one.
    virtual std::unique_ptr<ProfileFile> openProfile(const std::string& path,
                                                     const std::string& original) = 0;
    std::unique_ptr<ProfileFile> openProfile(const std::string& path) { return openProfile(path, {}); }
    /// The INI file that belongs to the system itself ("win.ini").
    virtual std::string systemProfilePath() = 0;

    /// The folder of the library's own files. It ends in a separator only if it is a root. On Windows it is
    /// the folder that the library was loaded from. On a POSIX system it is the user's own. A user's own
    /// folder, or a home in its place, need not exist until something is written in it, and counts as empty.
    virtual std::string libraryFolder() = 0;
    /// The folder of the error log, where the system has one for such files. No value if the log is in the
    /// application data folder, as on Windows and in a home.
    virtual std::optional<std::string> logFolder() = 0;
    /// The folders that may have a file that the library's folder has not, in the order in which they are
    /// searched. Nothing is written in them.
    virtual std::vector<std::string> otherFolders(FileUse use) = 0;
    /// The path of a shell special folder, as the system gives it. No value for a number that the system does
    /// not know.
    virtual std::optional<std::string> specialFolder(int number) = 0;

    /// The value of a variable in the environment of this process now. No value for one that is not set, or
    /// empty.
    virtual std::optional<std::string> environmentVariable(const std::string& name) = 0;

    virtual LocalTime localTime() = 0;
    virtual CalendarNames calendarNames() = 0;
};

struct PlatformOptions {
    /// A folder that replaces the library's folder and the user's folders, and holds the settings store. The
    /// library then uses no place outside it, except for files that callers or settings name, and for what
    /// was installed with the program. Without it, on POSIX systems, the environment variable VISTREL_HOME
    /// names that folder. On Windows only `vistrel` reads the variable, since the library is also loaded
    /// into programs of others. Without a home, the machine's own places are used.
    std::optional<std::string> home;
};

/// The machine's own services.
std::unique_ptr<Platform> makePlatform(const PlatformOptions& options = {});

/// The platform in use: the one that was installed last, else the machine's own, which is made on first use.
/// Its services may be used by several threads at the same time.
Platform& platform();

/// Installs another platform for the whole process.
using ScopedPlatform = ScopedInstallation<Platform>;
template <>
Platform*& ScopedPlatform::installed();

/// The message boxes that were installed last; null if the platform's own are in use.
MessageBoxes* InstalledMessageBoxes();

} // namespace qrtVistrelClasses4
