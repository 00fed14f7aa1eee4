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
#include <cstdint>
#include <limits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

SignListSynchronisation* installedSynchronisation = nullptr;

/// Where the list was written last.
constexpr RegistrySetting kDataFile{kVistrelLite, "Preview", "DisplayDataFile"};
constexpr RegistrySetting kSynchronise{kVistrel3, kSettingsSection, "SyncPCScheduler"};

std::string defaultPath(const std::string& fileName) { return JoinPath(LibraryFolder(), fileName); }

/// Whether a file is a list to its end. One that was cut short between two signs is taken for a shorter list.
bool isWholeList(std::string_view text) {
    if (text.find('\0') != text.npos) // where a power cut has left out a piece
        return false;
    if (text.ends_with('\n') && std::ranges::count(text, '\n') % kValuesOfADisplay == 0)
        return true; // without reading it, as nearly all are
    try {
        DelimitedReader in(text);
        for (DisplayRecord display; !in.atEnd();)
            ReadDisplay(in, display);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// Copies the list that is about to be overwritten. An empty file holds none, and half a list never takes the
/// place of a whole one.
SystemError copyPrevious(FileSystem& files, const std::string& path) {
    if (files.kindOf(path) == EntryKind::folder)
        return SystemError::none;
    const auto previous = files.read(path);
    if (previous.error() == SystemError::fileNotFound || (previous && previous.value().size == 0))
        return SystemError::none;
    if (!previous)
        return previous.error();
    const std::string copy = path + std::string(kBackupEnding);
    if (!isWholeList(previous.value().text()) && files.kindOf(copy) == EntryKind::file)
        return SystemError::none;
    ReplacementFile backup(files, MakePlaceForBackup(files, path));
    (void)backup.write(previous.value().text()); // a failure is kept, and told by `commit`
    return backup.commit();
}

/// A copy that may not be made does not stop the save. Every other failure does: it would strike the save as
/// well, and with the copy not made both lists would be lost.
void keepPrevious(FileSystem& files, const std::string& path) {
    const SystemError error = copyPrevious(files, path);
    if (error == SystemError::accessDenied || error == SystemError::inUse)
        ReportQuietly(ErrorFor(error));
    else
        Check(error);
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

template <>
SignListSynchronisation*& ScopedSignListSynchronisation::installed() {
    return installedSynchronisation;
}

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
    const std::string folder(SplitPath(sFileName).folder);
    bool isOpened = false;
    try {
        if (!halfWritten_ || *halfWritten_ != std::pair(sFileName, files.sizeOf(sFileName).valueOr(0)))
            keepPrevious(files, sFileName); // else the copy is the last whole list
        const bool isNew = files.kindOf(sFileName) == EntryKind::missing;
        const auto file = ValueOf(files.open(sFileName, OpenMode::replace));
        isOpened = true;
        Check(file->flush()); // empty for certain: no power cut leaves a mixture of both lists
        writeTo(*file);
        halfWritten_.reset();
        if (isNew) // its name must outlive a power cut, too, where the file system can see to it
            (void)files.flushFolder(folder);
    } catch (...) {
        const RuntimeError error = CurrentError();
        if (isOpened)
            halfWritten_.emplace(sFileName, files.sizeOf(sFileName).valueOr(0));
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
    const std::uint64_t errorsBefore = TrappedErrors();
    const std::string path = kDataFile.read(defaultPath(sFileName));
    if (TrappedErrors() != errorsBefore)
        return; // it has been told, and the list is anywhere
    sFileName = path;
    const FileBytes bytes = ValueOf(platform().files().read(sFileName));
    displays_.reserve(mostDisplays(bytes.size));
    DelimitedReader in(bytes.text());
    for (std::int32_t number = 1; !in.atEnd(); ++number) {
        displays_.resize(NarrowToInt16(number));
        ReadDisplay(in, displays_.at(number));
    }
}

} // namespace qrtVistrelClasses4
