// Reading and writing the list of signs.
#include "displays/DisplayDatabaseClass.h"
#include "displays/DisplayFormat.h"
#include "displays/DisplayProcedures.h"
#include "displays/SignListSynchronisation.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

SignListSynchronisation* installedSynchronisation = nullptr;

/// Where the list was written last.
constexpr RegistrySetting kDataFile{kVistrelLite, "Preview", "DisplayDataFile"};
constexpr RegistrySetting kSynchronise{kVistrel3, kSettingsSection, "SyncPCScheduler"};

std::string defaultPath(const std::string& fileName) { return JoinPath(LibraryFolder(), fileName); }

/// Keeps the list that is about to be overwritten, where it can. An empty file holds none.
void keepPrevious(const std::string& path) {
    try {
        FileSystem& files = platform().files();
        if (files.kindOf(path) != EntryKind::file)
            return;
        const FileBytes previous = ValueOf(files.read(path));
        if (previous.size == 0)
            return;
        ReplacementFile backup(files, path + std::string(kBackupEnding));
        (void)backup.write(previous.text()); // a failure is kept, and told by `commit`
        Check(backup.commit());
    } catch (...) {
        ReportQuietly(CurrentError());
    }
}

void showWriteFailure(const RuntimeError& error, const std::string& path) {
    std::string text;
    if (error.number() == static_cast<int>(ErrorNumber::pathFileAccess)) {
        std::string_view folder = SplitPath(path).folder;
        folder.remove_suffix(folder.empty() ? 0 : 1);
        text = error.description() + "\r\nCheck if you have read/write rights to Vistrel Folder " +
               std::string(folder);
    } else {
        text = std::to_string(error.number()) + error.description() + " while writing Display data to disk";
    }
    showMessage({text, "Error Occurred", MessageIcon::critical, MessageButtons::ok});
}

/// How many signs a file of that size holds at the most, if it was written here.
std::int32_t mostDisplays(std::size_t fileSize) {
    constexpr std::size_t texts = 21, numbers = 21, flags = 6;
    constexpr std::size_t shortest = 4 * texts + 3 * numbers + 8 * flags; // `""`, `0`, `#TRUE#`, line ends
    constexpr std::size_t mostNumbered = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int32_t>(std::min(fileSize / shortest, mostNumbered));
}

void synchronise(DisplayDatabaseClass& displays) {
    if (kSynchronise.read("False") == "True" && installedSynchronisation)
        installedSynchronisation->synchronise(displays);
}

} // namespace

ScopedSignListSynchronisation::ScopedSignListSynchronisation(SignListSynchronisation& synchronisation)
    : previous_(std::exchange(installedSynchronisation, &synchronisation)) {}
ScopedSignListSynchronisation::~ScopedSignListSynchronisation() { installedSynchronisation = previous_; }

void DisplayDatabaseClass::WriteAllDisplaysToDisk(std::string& sFileName) {
    traced(
        DisplaySub("WriteAllDisplaysToDisk"), [&] { writeDisplays(sFileName); }, Arg{"sFileName", sFileName});
}

void DisplayDatabaseClass::WriteAllDisplaysToDisk() {
    const std::optional<std::string> missing;
    traced(
        DisplaySub("WriteAllDisplaysToDisk"),
        [&] {
            std::string fileName;
            writeDisplays(fileName);
        },
        Arg{"sFileName", missing});
}

void DisplayDatabaseClass::writeDisplays(std::string& sFileName) {
    sFileName = defaultPath(sFileName);
    kDataFile.write(sFileName);
    FileSystem& files = platform().files();
    if (!halfWritten_ || *halfWritten_ != std::pair(sFileName, files.sizeOf(sFileName).value))
        keepPrevious(sFileName); // else the copy is the last whole list
    bool isOpened = false;
    try {
        const auto file = ValueOf(files.open(sFileName, OpenMode::replace));
        isOpened = true;
        writeTo(*file);
        halfWritten_.reset();
    } catch (...) {
        const RuntimeError error = CurrentError();
        if (isOpened)
            halfWritten_.emplace(sFileName, files.sizeOf(sFileName).value);
        showWriteFailure(error, sFileName);
        return;
    }
    synchronise(*this);
}

void DisplayDatabaseClass::writeTo(OutputFile& file) {
    DelimitedWriter out(file);
    const std::int16_t total = TotalDisplays();
    for (std::int32_t number = 1; number <= total; ++number)
        WriteDisplay(out, displays_.at(number));
    out.finish();
    Check(file.flush());
    Check(file.close());
}

void DisplayDatabaseClass::RetrieveAllDisplayInfoFromDisk(std::string& sFileName) {
    traced(
        DisplaySub("RetrieveAllDisplayInfoFromDisk"), [&] { readDisplays(sFileName); },
        Arg{"sFileName", sFileName});
}

void DisplayDatabaseClass::RetrieveAllDisplayInfoFromDisk() {
    const std::optional<std::string> missing;
    traced(
        DisplaySub("RetrieveAllDisplayInfoFromDisk"),
        [&] {
            std::string fileName;
            readDisplays(fileName);
        },
        Arg{"sFileName", missing});
}

void DisplayDatabaseClass::readDisplays(std::string& sFileName) {
    sFileName = kDataFile.read(defaultPath(sFileName));
    const FileBytes bytes = ValueOf(platform().files().read(sFileName));
    displays_.reserve(mostDisplays(bytes.size));
    DelimitedReader in(bytes.text());
    for (std::int32_t number = 1; !in.atEnd(); ++number) {
        displays_.resize(NarrowToInt16(number));
        ReadDisplay(in, displays_.at(number));
    }
}

} // namespace qrtVistrelClasses4
