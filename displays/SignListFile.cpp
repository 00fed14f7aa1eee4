// The file of a list of signs, and where it is.
#include "displays/DisplayFormat.h"
#include "frame/Conversions.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/KeptCopies.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/LibraryFiles.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/SignList.h>

#include <algorithm>
#include <limits>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

constexpr RegistrySetting kDataFile{kVistrelLite, "Preview", "DisplayDataFile"};

/// Number of the first copy of a file that cannot be read to its end. The copy before it is for whole lists.
constexpr int kFirstCopyOfDamaged = 2;

/// True if a file can be read to its end. A list that was cut short between two signs can.
bool isWholeList(std::string_view text) {
    if (text.find('\0') != text.npos) // a power cut has left out a piece
        return false;
    try {
        DelimitedReader in(text);
        DisplayRecord scratch;
        for (std::int32_t number = 1; !in.atEnd(); ++number) {
            (void)NarrowToInt16(number);
            SkipDisplay(in, scratch);
        }
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

SystemError replaceBackup(FileSystem& files, const std::string& path, std::string_view previous) {
    ReplacementFile backup(files, MakePlaceForBackup(files, path));
    (void)backup.write(previous); // `commit` reports a failure of this
    return backup.commit();
}

enum class Writing {
    inPlace,
    beside, ///< A new file takes the place of the old one in one step, if the folder accepts one.
};

/// Keeps the list that is about to be replaced. A whole list replaces the copy of the list before it; any
/// other file gets a copy of its own, which nothing replaces. Throws if the save would lose the only copy of
/// something.
Writing keepPrevious(FileSystem& files, const std::string& path, SignListSaving& saving) {
    if (files.kindOf(path) == EntryKind::folder)
        return Writing::inPlace; // which fails
    const auto previous = files.read(path);
    if (previous.error() == SystemError::fileNotFound || (previous && previous.value().size == 0))
        return Writing::inPlace;
    if (previous.error() == SystemError::folderNotFound)
        Check(previous.error()); // nothing to keep, and no place for the new list
    const bool isWhole = previous && isWholeList(previous.value().text());
    SystemError error = previous.error();
    if (isWhole) {
        error = replaceBackup(files, path, previous.value().text());
    } else if (previous || error == SystemError::accessDenied) {
        const auto kept = KeepAside(files, path, IfNotCopied::rename, kFirstCopyOfDamaged);
        error = kept.error();
        if (kept)
            saving.keptAs = kept.value();
    }
    if (error == SystemError::none)
        return Writing::inPlace;
    saving.keepingError = ErrorFor(error);
    if (isWhole &&
        (error == SystemError::diskFull || error == SystemError::accessDenied || error == SystemError::inUse))
        return Writing::beside;
    throw RuntimeError(*saving.keepingError);
}

HalfWrittenList halfWrittenAt(FileSystem& files, const std::string& path) {
    return {path, files.sizeOf(path).valueOr(0)};
}

void writeSigns(ByteSink& file, const SignList& list) {
    DelimitedWriter out(file);
    const std::int16_t last = list.count();
    for (std::int32_t number = 1; number <= last; ++number)
        WriteDisplay(out, list.signs.at(number));
    out.finish();
}

void writeInPlace(FileSystem& files, const std::string& path, const SignList& list, SignListSaving& saving) {
    const bool isNew = files.kindOf(path) == EntryKind::missing;
    const auto file = ValueOf(files.open(path, OpenMode::replace));
    saving.step = SavingStep::writing;
    const auto error = ErrorOf([&] {
        Check(file->flush()); // empty for certain: no power cut leaves a mixture of both lists
        writeSigns(*file, list);
        Check(file->flush());
        Check(file->close());
    });
    saving.halfWritten = error ? std::optional(halfWrittenAt(files, path)) : std::nullopt;
    Check(error);
    if (isNew) // its name must outlive a power cut, too, if the file system supports that
        (void)files.flushFolder(std::string(SplitPath(path).folder));
}

void writeBeside(FileSystem& files, const std::string& path, const SignList& list, SignListSaving& saving) {
    ReplacementFile file(files, path);
    Check(file.error());
    if (file.isInPlace() && saving.keepingError->number() == static_cast<int>(ErrorNumber::diskFull))
        throw RuntimeError(*saving.keepingError); // neither list might be whole in the end
    saving.step = SavingStep::writing;
    const auto error = ErrorOf([&] {
        writeSigns(file, list);
        Check(file.commit());
    });
    saving.halfWritten = error && file.isInPlace() ? std::optional(halfWrittenAt(files, path)) : std::nullopt;
    Check(error);
}

/// Bytes of the shortest value of a row: `""`, `0` or `#TRUE#`, with its line end.
template <class Row>
constexpr std::size_t shortestOf(const Row&) {
    using Value = ValueOfRow<Row>;
    return std::is_same_v<Value, std::string> ? 4 : std::is_same_v<Value, bool> ? 8 : 3;
}

/// Bytes of the shortest sign that is written here.
constexpr std::size_t shortestSign() {
    std::size_t size = 0;
    ForEachRow(kDisplayMembers, [&](const auto& row) {
        if constexpr (requires { row.elements; })
            ForEachRow(row.elements,
                       [&](const auto& part) { size += kSchedulesOfADisplay * shortestOf(part); });
        else
            size += shortestOf(row);
    });
    return size;
}

/// The greatest number of signs in a file of that size, if it was written here.
std::int32_t mostDisplays(std::size_t fileSize) {
    constexpr std::size_t shortest = shortestSign();
    constexpr std::size_t mostNumbered = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int32_t>(std::min(fileSize / shortest, mostNumbered));
}

void readSigns(std::string_view text, SignList& list, SignListReading& reading) {
    DelimitedReader in(text);
    for (std::int32_t number = 1; !in.atEnd(); ++number) {
        list.signs.resize(NarrowToInt16(number));
        try {
            if (ReadDisplay(in, list.signs.at(number)))
                reading.mended.push_back(NarrowToInt16(number));
        } catch (const RuntimeError& error) {
            reading.error = FileError{error, in.errorLine()};
            return;
        }
        reading.wholeSigns = number;
    }
}

} // namespace

bool SignListReading::isMissing() const {
    return error && error->error.number() == static_cast<int>(ErrorNumber::fileNotFound);
}

SignListReading ReadSignList(const std::string& path, SignList& list) {
    SignListReading reading;
    const auto error = ErrorOf([&] {
        const FileBytes bytes = ValueOf(platform().files().read(path));
        list.signs.reserve(mostDisplays(bytes.size));
        readSigns(bytes.text(), list, reading);
    });
    if (error)
        reading.error = FileError{*error, {}};
    return reading;
}

SignListOutcome LoadSignList(const std::string& path) {
    SignListOutcome outcome;
    static_cast<SignListReading&>(outcome) = ReadSignList(path, outcome.list);
    return outcome;
}

SignListSaving SaveSignList(const SignList& list, const std::string& path,
                            const std::optional<HalfWrittenList>& halfWritten) try {
    SignListSaving saving;
    saving.halfWritten = halfWritten;
    FileSystem& files = platform().files();
    saving.error = ErrorOf([&] {
        const bool isKept = halfWritten && *halfWritten == halfWrittenAt(files, path);
        const Writing writing = isKept ? Writing::inPlace : keepPrevious(files, path, saving);
        saving.step = SavingStep::opening;
        (writing == Writing::inPlace ? writeInPlace : writeBeside)(files, path, list, saving);
    });
    return saving;
} catch (...) {
    RethrowAsRuntimeError();
}

std::string SavedSignListPath(const std::string& fileName) try {
    return PlaceIn(LibraryFolder(), {.name = fileName});
} catch (...) {
    RethrowAsRuntimeError();
}

void RememberSignListPath(const std::string& path) try { kDataFile.write(path); } catch (...) {
    RethrowAsRuntimeError();
}

std::optional<std::string> RememberedSignListPath(const std::string& fileName) try {
    std::optional<std::string> path = kDataFile.find(PlaceToRead(LibraryFolder(), {.name = fileName}));
    if (path)
        path = platform().files().existingName(*path);
    return path;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
