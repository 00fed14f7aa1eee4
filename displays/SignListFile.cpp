// The file of a list of signs, and where it is.
#include "displays/DisplayFormat.h"
#include "frame/Conversions.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/SignList.h>

#include <algorithm>
#include <limits>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

constexpr RegistrySetting kDataFile{kVistrelLite, "Preview", "DisplayDataFile"};

/// True if a file is a complete list. A list that was cut short between two signs counts as complete.
bool isWholeList(std::string_view text) {
    if (text.find('\0') != text.npos) // a power cut has left out a piece
        return false;
    if (text.ends_with('\n') && std::ranges::count(text, '\n') % kValuesOfADisplay == 0)
        return true; // most lists need not be read any further
    try {
        DelimitedReader in(text);
        for (DisplayRecord display; !in.atEnd();)
            ReadDisplay(in, display);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// Copies the list that is about to be overwritten. An empty file holds no list, and half a list never
/// replaces a whole one.
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
    (void)backup.write(previous.value().text()); // `commit` reports a failure of this
    return backup.commit();
}

/// Copies the list that is about to be overwritten. Returns the error of a copy that is not permitted, which
/// does not stop the save. Every other failure does stop it: the save would fail, too, and without a copy
/// both lists would be lost.
std::optional<RuntimeError> keepPrevious(FileSystem& files, const std::string& path) {
    const SystemError error = copyPrevious(files, path);
    if (error == SystemError::accessDenied || error == SystemError::inUse)
        return ErrorFor(error);
    Check(error);
    return std::nullopt;
}

HalfWrittenList halfWrittenAt(FileSystem& files, const std::string& path) {
    return {path, files.sizeOf(path).valueOr(0)};
}

void writeTo(OutputFile& file, const SignList& list) {
    DelimitedWriter out(file);
    const std::int16_t last = list.count();
    for (std::int32_t number = 1; number <= last; ++number)
        WriteDisplay(out, list.signs.at(number));
    out.finish();
    Check(file.flush());
    Check(file.close());
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
    bool isOpened = false;
    saving.error = ErrorOf([&] {
        if (!halfWritten || *halfWritten != halfWrittenAt(files, path))
            saving.keepingError = keepPrevious(files, path); // else the copy is the last whole list
        const bool isNew = files.kindOf(path) == EntryKind::missing;
        const auto file = ValueOf(files.open(path, OpenMode::replace));
        isOpened = true;
        Check(file->flush()); // empty for certain: no power cut leaves a mixture of both lists
        saving.isStarted = true;
        writeTo(*file, list);
        saving.halfWritten.reset();
        if (isNew) // its name must outlive a power cut, too, if the file system supports that
            (void)files.flushFolder(std::string(SplitPath(path).folder));
    });
    if (saving.error && isOpened)
        saving.halfWritten = halfWrittenAt(files, path);
    return saving;
} catch (...) {
    RethrowAsRuntimeError();
}

std::string SavedSignListPath(const std::string& fileName) try {
    return JoinPath(LibraryFolder(), fileName);
} catch (...) {
    RethrowAsRuntimeError();
}

void RememberSignListPath(const std::string& path) try { kDataFile.write(path); } catch (...) {
    RethrowAsRuntimeError();
}

std::optional<std::string> RememberedSignListPath(const std::string& fileName) try {
    return kDataFile.find(SavedSignListPath(fileName));
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
