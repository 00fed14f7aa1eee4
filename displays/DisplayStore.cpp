// Saving and loading by the object: trace, trap, message box and synchronisation.
#include "displays/DisplayProcedures.h"
#include "frame/ErrorTrap.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "settings/OperatorMessages.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/SignListSynchronisation.h>

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

SignListSynchronisation* installedSynchronisation = nullptr;

constexpr RegistrySetting kSynchronise{kVistrel3, kSettingsSection, "SyncPCScheduler"};

void showFailure(const RuntimeError& error, const char* when, const std::string& path) {
    std::string text;
    if (error.number() == static_cast<int>(ErrorNumber::pathFileAccess)) {
        std::string_view folder = SplitPath(path).folder;
        folder.remove_suffix(folder.empty() ? 0 : 1);
        text = error.description() + "\r\nCheck if you have read/write rights to Vistrel Folder " +
               std::string(folder);
    } else {
        text = std::to_string(error.number()) + error.description() + when;
    }
    ShowFailure(error.number(), text, "Error Occurred");
}

/// Shows why the list was not saved, or that it was saved without a copy of the previous one because the disk
/// is full. A copy that is not permitted is only logged: that is the same at every save.
void showOutcome(const SignListSaving& saving, const std::string& path) {
    constexpr const char* keeping = " while keeping a copy of the previous Display data";
    if (saving.error)
        showFailure(*saving.error,
                    saving.keepingError && saving.step == SavingStep::keeping
                        ? keeping
                        : " while writing Display data to disk",
                    path);
    else if (saving.keepingError && saving.keepingError->number() == static_cast<int>(ErrorNumber::diskFull))
        showFailure(
            *saving.keepingError,
            " while keeping a copy of the previous Display data. The new Display data has been saved.", path);
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
        {lastError_, DisplaySub("WriteAllDisplaysToDisk")}, [&] { writeDisplays(sFileName); },
        Arg{"sFileName", sFileName});
}

void DisplayDatabaseClass::WriteAllDisplaysToDisk() {
    const std::optional<std::string> missing;
    traced(
        {lastError_, DisplaySub("WriteAllDisplaysToDisk")},
        [&] {
            std::string fileName;
            writeDisplays(fileName);
        },
        Arg{"sFileName", missing});
}

void DisplayDatabaseClass::writeDisplays(std::string& sFileName) {
    sFileName = SavedSignListPath(sFileName);
    RememberSignListPath(sFileName);
    SignListSaving saving = SaveSignList(list_, sFileName, halfWritten_);
    halfWritten_ = std::move(saving.halfWritten);
    if (saving.keepingError)
        ReportQuietly(*saving.keepingError);
    ReportKeptCopy(saving.keptAs);
    if (saving.step == SavingStep::writing)
        (void)TotalDisplays(); // on the trace
    showOutcome(saving, sFileName);
    if (saving.isWritten())
        synchronise(*this);
}

void DisplayDatabaseClass::RetrieveAllDisplayInfoFromDisk(std::string& sFileName) {
    traced(
        {lastError_, DisplaySub("RetrieveAllDisplayInfoFromDisk")}, [&] { readDisplays(sFileName); },
        Arg{"sFileName", sFileName});
}

void DisplayDatabaseClass::RetrieveAllDisplayInfoFromDisk() {
    const std::optional<std::string> missing;
    traced(
        {lastError_, DisplaySub("RetrieveAllDisplayInfoFromDisk")},
        [&] {
            std::string fileName;
            readDisplays(fileName);
        },
        Arg{"sFileName", missing});
}

void DisplayDatabaseClass::readDisplays(std::string& sFileName) {
    const std::optional<std::string> path = RememberedSignListPath(sFileName);
    if (!path)
        return; // the error has been reported, and it is not known where the list is
    sFileName = *path;
    names_.forget();
    const SignListReading reading = ReadSignList(sFileName, list_);
    if (reading.error)
        throw reading.error->error;
}

} // namespace qrtVistrelClasses4
