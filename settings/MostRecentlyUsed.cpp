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

/// The setting that tells where the list was written last.
struct ListFileSetting {
    std::string application{kVistrelLite};
    std::string section{kSettingsSection};
    std::string valueName = "MRU";
};

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
    bool isListRead = false;
    traced(
        sub("RemoveEntry"),
        [&] {
            isListRead = GetMRUFromDisk();
            if (!isListRead)
                return;
            OneBasedArray<std::string> kept(entries_.upperBound() + 1);
            std::int32_t last = 1;
            for (std::string& entry : entries_)
                if (!entry.empty() && !EqualIgnoringAnsiCase(entry, sFileName))
                    kept.at(last++) = std::move(entry);
            kept.resize(last); // an empty entry stands behind the last name
            entries_ = std::move(kept);
            WriteMRUToDisk();
        },
        Arg{"sFileName", sFileName});
    return isListRead;
}

bool MostRecentlyUsed::GetMRUFromDisk() {
    bool mayBeWritten = true;
    traced(sub("GetMRUFromDisk"), [&] {
        entries_ = OneBasedArray<std::string>(1);
        const ListFileSetting setting;
        const std::string path =
            ReadSetting(setting.application, setting.section, setting.valueName, defaultPath());
        const auto file = platform().files().read(path);
        if (file.error == SystemError::fileNotFound)
            throw ErrorFor(file.error).quietly(); // the list is about to be started
        mayBeWritten = file.error == SystemError::none || file.error == SystemError::folderNotFound;
        Check(file.error);
        DelimitedReader in(file.value.text());
        for (std::int32_t number = 1; !in.atEnd(); ++number) {
            entries_.resize(number);
            in.get(entries_.at(number));
        }
    });
    return mayBeWritten;
}

void MostRecentlyUsed::WriteMRUToDisk() {
    traced(sub("WriteMRUToDisk"), [&] {
        const ListFileSetting setting;
        const std::string path = defaultPath();
        WriteSetting(setting.application, setting.section, setting.valueName, path);
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
