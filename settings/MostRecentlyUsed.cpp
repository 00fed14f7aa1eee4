#include "settings/MostRecentlyUsed.h"

#include "frame/DelimitedValues.h"
#include "frame/Traced.h"
#include "frame/modClassIDGenerator.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Where the list was written last.
constexpr RegistrySetting kListFile{kVistrelLite, kSettingsSection, "MRU"};

std::string defaultPath() { return JoinPath(LibraryFolder(), "VistrelLite.MRU"); }

constexpr Procedure sub(std::string_view name) { return {"MostRecentlyUsed.cls", ProcedureKind::Sub, name}; }
constexpr Procedure function(std::string_view name) {
    return {"MostRecentlyUsed.cls", ProcedureKind::Function, name};
}

} // namespace

MostRecentlyUsed::MostRecentlyUsed() {
    traced(sub("Class_Initialize"), [&] {
        entries_.resize(1);
        classDebugID_ = GetNextClassDebugID();
        GetMRUFromDisk();
    });
}

MostRecentlyUsed::~MostRecentlyUsed() {
    traced(sub("Class_Terminate"), [] {});
}

void MostRecentlyUsed::AddFileToMostRecentlyUsedList(const std::string& sFileName) {
    traced(
        sub("AddFileToMostRecentlyUsedList"), [&] { AddEntry(sFileName); }, Arg{"sFileName", sFileName});
}

void MostRecentlyUsed::RemoveFileFromMostRecentlyUsed(const std::string& sFileName) {
    traced(
        sub("RemoveFileFromMostRecentlyUsed"), [&] { RemoveEntry(sFileName); }, Arg{"sFileName", sFileName});
}

void MostRecentlyUsed::PurgeMRUList() {
    traced(sub("PurgeMRUList"), [&] { entries_ = OneBasedArray<std::string>(1); });
}

std::string MostRecentlyUsed::GetFirstFileName() {
    return traced(function("GetFirstFileName"), [&] {
        lastRead_ = 1;
        return entries_.at(lastRead_);
    });
}

std::string MostRecentlyUsed::GetNextFile() {
    return traced(function("GetNextFile"), [&] {
        lastRead_ = NarrowToInt16(lastRead_ + 1);
        return lastRead_ > entries_.upperBound() ? std::string() : entries_.at(lastRead_);
    });
}

std::string MostRecentlyUsed::GetFileName(std::int16_t IndexToFind) {
    return traced(
        function("GetFileName"),
        [&] { return IndexToFind > entries_.upperBound() ? std::string() : entries_.at(IndexToFind); },
        Arg{"IndexToFind", IndexToFind});
}

std::int16_t MostRecentlyUsed::TotalFilesInList() {
    return traced({"MostRecentlyUsed.cls", ProcedureKind::PropertyGet, "TotalFilesInList"}, [&] {
        return entries_.at(1).empty() ? std::int16_t{0} : NarrowToInt16(entries_.upperBound());
    });
}

void MostRecentlyUsed::AddEntry(const std::string& sFileName) {
    traced(
        sub("AddEntry"),
        [&] {
            if (sFileName.empty() || !GetMRUFromDisk() || !RemoveEntry(sFileName))
                return;
            const std::int32_t last = entries_.upperBound() + 1;
            entries_.resize(last);
            entries_.at(last) = sFileName;
            entries_.move(last, 1);
            WriteMRUToDisk();
        },
        Arg{"sFileName", sFileName});
}

bool MostRecentlyUsed::RemoveEntry(const std::string& sFileName) {
    bool isDone = false;
    traced(
        sub("RemoveEntry"),
        [&] {
            if (!GetMRUFromDisk())
                return;
            OneBasedArray<std::string> kept(entries_.upperBound() + 1);
            std::int32_t last = 1;
            for (std::string& entry : entries_)
                if (!entry.empty() && !EqualIgnoringAnsiCase(entry, sFileName))
                    kept.at(last++) = std::move(entry);
            kept.resize(last); // an empty entry stands behind the last name
            entries_ = std::move(kept);
            WriteMRUToDisk();
            isDone = true;
        },
        Arg{"sFileName", sFileName});
    return isDone;
}

bool MostRecentlyUsed::GetMRUFromDisk() {
    bool mayBeWritten = false;
    traced(sub("GetMRUFromDisk"), [&] {
        entries_ = OneBasedArray<std::string>(1);
        const std::uint64_t errorsBefore = TrappedErrors();
        const std::string path = kListFile.read(defaultPath());
        if (TrappedErrors() != errorsBefore)
            return; // it has been told, and the list is anywhere
        FileSystem& files = platform().files();
        const auto file = files.read(path);
        // The list's own folder, once it is there again, holds a list that must not be written over.
        mayBeWritten = file.error() == SystemError::fileNotFound ||
                       (file.error() == SystemError::folderNotFound && path != defaultPath());
        if (file.error() == SystemError::fileNotFound)
            throw ErrorFor(file.error()).quietly(); // the list is about to be started
        Check(file.error());
        try {
            readEntries(file.value().text());
            mayBeWritten = true;
        } catch (const RuntimeError&) { // a damaged file, whose names are not all here
            mayBeWritten = files.copy(path, MakePlaceForBackup(files, path)) == SystemError::none;
            throw;
        }
    });
    return mayBeWritten;
}

void MostRecentlyUsed::readEntries(std::string_view text) {
    DelimitedReader in(text);
    for (std::int32_t number = 1; !in.atEnd(); ++number) {
        entries_.resize(number);
        in.get(entries_.at(number));
    }
}

void MostRecentlyUsed::WriteMRUToDisk() {
    traced(sub("WriteMRUToDisk"), [&] {
        const std::string path = defaultPath();
        kListFile.write(path);
        ReplacementFile file(platform().files(), path);
        Check(file.error());
        DelimitedWriter out(file);
        for (const std::string& entry : entries_)
            out.put(entry);
        out.finish();
        Check(file.commit());
    });
}

} // namespace qrtVistrelClasses4
