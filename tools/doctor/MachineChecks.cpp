// The program, its terminal, and what it may write.
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"
#include "tools/doctor/Checks.h"
#include "tools/doctor/Wording.h"
#include "tools/program/Encoding.h"

namespace qrtVistrelClasses4 {
namespace {

std::string colorsOf(const Terminal& terminal) {
    if (terminal.refusesColors)
        return "no colours, as NO_COLOR asks";
    switch (terminal.colors) {
    case ColorDepth::none:
        return "no colours";
    case ColorDepth::sixteen:
        return "16 colours";
    case ColorDepth::palette:
        return "256 colours";
    case ColorDepth::full:
        break;
    }
    return "all colours";
}

void checkTerminal(DoctorFindings& findings) {
    Console& console = platform().console();
    const Terminal terminal = console.terminal();
    const bool isTerminal = console.isTerminal(StandardStream::output);
    findings.push_back(
        {.check = "terminal",
         .severity = Severity::note,
         .subject = "terminal",
         .message = (isTerminal ? std::to_string(terminal.columns) + " columns, "
                                : "standard output goes elsewhere; a terminal would get ") +
                    colorsOf(terminal) +
                    (terminal.hasSymbols ? " and block elements in UTF-8" : " and only letters, no UTF-8")});
}

/// `folder`, or the nearest one above it that exists: it has the right to make the others.
std::string nearestFolder(std::string folder) {
    while (platform().files().kindOf(folder) == EntryKind::missing) {
        const std::size_t end = folder.find_last_not_of(kPathSeparator);
        const std::string above(SplitPath(std::string_view(folder).substr(0, end + 1)).folder);
        if (above.empty() || above == folder)
            break;
        folder = above;
    }
    return folder;
}

/// Adds what keeps this user from making files in `folder`, if anything does.
void setWritable(DoctorFinding& finding, const std::string& folder, std::string_view whatFails) {
    if (platform().inspection().mayAddTo(folder) == SystemError::none)
        return;
    finding.severity = Severity::warning;
    finding.message = "this user may not write in " + VisibleName(folder) + ": " + std::string(whatFails);
    finding.advice = "give this user the right to write there, or choose another folder with --home";
}

struct CheckedFolder {
    std::string_view check;
    std::string_view name;
    std::string_view use; ///< What cannot be done without it.
    bool isMade = false;  ///< Whether the library makes it when it is needed.
};

void checkFolder(const CheckedFolder& checked, const std::string& folder, DoctorFindings& findings) {
    DoctorFinding finding{.check = checked.check,
                          .subject = std::string(checked.name),
                          .message = VisibleName(folder),
                          .path = folder};
    const EntryKind kind = platform().files().kindOf(folder);
    if (kind == EntryKind::folder) {
        setWritable(finding, folder, checked.use);
    } else if (kind == EntryKind::missing && checked.isMade) {
        finding.message += " is made when something is saved";
        setWritable(finding, nearestFolder(folder), checked.use);
    } else {
        finding.severity = Severity::error;
        finding.message += kind == EntryKind::missing ? " does not exist" : " is not a folder";
        finding.advice = "make the folder, or correct the setting that names it (" +
                         VisibleName(SettingsPlace("Vistrel3\\Settings")) + ", AppPath)";
    }
    findings.push_back(std::move(finding));
}

void checkDocuments(DoctorFindings& findings) {
    DoctorFinding finding{.check = "folder.documents", .subject = "documents folder"};
    const std::optional<std::string> folder = platform().specialFolder(kDocumentsFolder);
    if (folder && platform().files().kindOf(*folder) == EntryKind::folder) {
        finding.message = VisibleName(*folder);
        setWritable(finding, *folder, "no folder for playfiles can be made there");
    } else {
        finding.severity = Severity::note;
        finding.message = (folder ? VisibleName(*folder) + " does not exist" : "this user has none") +
                          ", so that the application makes no folder for playfiles";
    }
    finding.path = folder.value_or("");
    findings.push_back(std::move(finding));
}

/// The rights on the registry in each view.
void checkRegistryRights(DoctorFindings& findings) {
    Inspection& inspection = platform().inspection();
    for (const Bitness view : inspection.registryViews()) {
        DoctorFinding finding{.check = "settings.rights",
                              .subject = "settings of " + BitsText(view) + " programs",
                              .message = "may be changed"};
        if (inspection.mayChange({view, RegisteredFor::allUsers, std::string(kSettingsKey)}) !=
            SystemError::none) {
            finding.severity = Severity::warning;
            finding.message = "this user may not change HKEY_LOCAL_MACHINE\\" + std::string(kSettingsKey) +
                              ": settings are read, but not saved";
            finding.advice = "run the program as administrator to change settings";
        }
        findings.push_back(std::move(finding));
    }
}

void checkSettingsFile(const std::string& file, DoctorFindings& findings) {
    DoctorFinding finding{
        .check = "settings.rights", .subject = "settings store", .message = "may be changed", .path = file};
    const std::string folder = nearestFolder(std::string(SplitPath(file).folder));
    setWritable(finding, folder, "settings are read, but not saved");
    if (platform().files().kindOf(file) == EntryKind::file &&
        platform().files().mayWrite(file) != SystemError::none) {
        finding.severity = Severity::warning;
        finding.message = "this user may not write " + VisibleName(file) + ": settings are not saved";
        finding.advice = "give this user the right to write the file";
    }
    findings.push_back(std::move(finding));
}

} // namespace

void CheckProgram(std::string_view version, DoctorFindings& findings) {
    findings.push_back({.check = "program",
                        .subject = "program",
                        .message = "vistrel " + std::string(version) + ", " + BitsText(kOwnBitness) +
                                   ", on " + platform().inspection().systemName()});
    checkTerminal(findings);
}

void CheckRights(DoctorFindings& findings) {
    if (const std::string file = platform().registry().file(); file.empty())
        checkRegistryRights(findings);
    else
        checkSettingsFile(file, findings);
    const std::string library = LibraryFolder(), application = GetAppFolder();
    checkFolder(
        {"folder.library", "library folder", "signs, recent files and commands cannot be saved", true},
        library, findings);
    if (application != WithTrailingSeparator(library))
        checkFolder({"folder.application", "application data folder",
                     "preferences, the error log and copies of pictures cannot be saved"},
                    application, findings);
    checkDocuments(findings);
}

} // namespace qrtVistrelClasses4
