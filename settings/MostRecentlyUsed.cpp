#include <qrtVistrelClasses4/MostRecentlyUsed.h>

#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "frame/modClassIDGenerator.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr Procedure sub(std::string_view name) { return {"MostRecentlyUsed.cls", ProcedureKind::Sub, name}; }
constexpr Procedure function(std::string_view name) {
    return {"MostRecentlyUsed.cls", ProcedureKind::Function, name};
}

RecentFiles emptyList() { return {OneBasedArray<std::string>(1)}; }

} // namespace

MostRecentlyUsed::MostRecentlyUsed() {
    traced({lastError_, sub("Class_Initialize")}, [&] {
        files_ = emptyList();
        classDebugID_ = GetNextClassDebugID();
        GetMRUFromDisk();
    });
}

MostRecentlyUsed::~MostRecentlyUsed() {
    traced({lastError_, sub("Class_Terminate")}, [] {});
}

void MostRecentlyUsed::AddFileToMostRecentlyUsedList(const std::string& sFileName) {
    traced(
        {lastError_, sub("AddFileToMostRecentlyUsedList")}, [&] { AddEntry(sFileName); },
        Arg{"sFileName", sFileName});
}

void MostRecentlyUsed::RemoveFileFromMostRecentlyUsed(const std::string& sFileName) {
    traced(
        {lastError_, sub("RemoveFileFromMostRecentlyUsed")}, [&] { RemoveEntry(sFileName); },
        Arg{"sFileName", sFileName});
}

void MostRecentlyUsed::PurgeMRUList() {
    traced({lastError_, sub("PurgeMRUList")}, [&] { files_ = emptyList(); });
}

std::string MostRecentlyUsed::GetFirstFileName() {
    return traced({lastError_, function("GetFirstFileName")}, [&] {
        lastRead_ = 1;
        return files_.entries.at(lastRead_);
    });
}

std::string MostRecentlyUsed::GetNextFile() {
    return traced({lastError_, function("GetNextFile")}, [&] {
        lastRead_ = NarrowToInt16(lastRead_ + 1);
        return lastRead_ > files_.entries.upperBound() ? std::string() : files_.entries.at(lastRead_);
    });
}

std::string MostRecentlyUsed::GetFileName(std::int16_t IndexToFind) const {
    return traced(
        {lastError_, function("GetFileName")},
        [&] {
            return IndexToFind > files_.entries.upperBound() ? std::string() : files_.entries.at(IndexToFind);
        },
        Arg{"IndexToFind", IndexToFind});
}

std::int16_t MostRecentlyUsed::TotalFilesInList() const {
    return traced({lastError_, {"MostRecentlyUsed.cls", ProcedureKind::PropertyGet, "TotalFilesInList"}},
                  [&] {
                      return files_.entries.at(1).empty() ? std::int16_t{0}
                                                          : NarrowToInt16(files_.entries.upperBound());
                  });
}

void MostRecentlyUsed::AddEntry(const std::string& sFileName) {
    traced(
        {lastError_, sub("AddEntry")},
        [&] {
            if (sFileName.empty() || !GetMRUFromDisk() || !RemoveEntry(sFileName))
                return;
            files_.putFirst(sFileName);
            WriteMRUToDisk();
        },
        Arg{"sFileName", sFileName});
}

bool MostRecentlyUsed::RemoveEntry(const std::string& sFileName) {
    return traced(
        {lastError_, sub("RemoveEntry")},
        [&] {
            if (!GetMRUFromDisk())
                return false;
            files_.remove(sFileName);
            WriteMRUToDisk();
            return true;
        },
        Arg{"sFileName", sFileName});
}

bool MostRecentlyUsed::GetMRUFromDisk() {
    bool mayBeReplaced = false;
    traced({lastError_, sub("GetMRUFromDisk")}, [&] {
        files_ = emptyList();
        const std::optional<std::string> path = RecentFilesPath();
        if (!path)
            return;
        RecentFilesOutcome outcome = LoadRecentFiles(*path);
        files_ = std::move(outcome.files);
        mayBeReplaced = outcome.mayBeReplaced;
        ReportKeptCopy(outcome.keptAs);
        Check(outcome.error);
    });
    return mayBeReplaced;
}

void MostRecentlyUsed::WriteMRUToDisk() {
    traced({lastError_, sub("WriteMRUToDisk")}, [&] { Check(SaveRecentFiles(files_)); });
}

} // namespace qrtVistrelClasses4
