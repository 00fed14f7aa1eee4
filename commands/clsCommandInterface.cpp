#include "commands/clsCommandInterface.h"

#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "settings/AppFolder.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {
namespace {

/// Where the table is.
constexpr RegistrySetting kTableFile{kVistrelLite, "Commands", "KeyByteFile"};

constexpr Procedure procedure(ProcedureKind kind, std::string_view name) {
    return {"clsCommandInterface.cls", kind, name};
}
constexpr Procedure sub(std::string_view name) { return procedure(ProcedureKind::Sub, name); }
constexpr Procedure propertyGet(std::string_view name) { return procedure(ProcedureKind::PropertyGet, name); }
constexpr Procedure propertyLet(std::string_view name) { return procedure(ProcedureKind::PropertyLet, name); }

/// The table's place below `folder`, which ends in a separator.
std::string tableBelow(const std::string& folder) {
    return folder + "db" + kPathSeparator + "VistrelLite.dat";
}

std::string configuredPath() { return kTableFile.read(tableBelow(WithTrailingSeparator(LibraryFolder()))); }

/// Where the table is saved: over the file that there is, else below the library's folder. Behind a root this
/// has one separator more than loading takes, which existing settings hold so.
std::string pathToSave() {
    std::string path = configuredPath();
    if (platform().files().kindOf(path) != EntryKind::file)
        path = tableBelow(LibraryFolder() + kPathSeparator);
    return path;
}

/// Makes one level; a folder that cannot be made is found out when the file is opened.
void makeFolderOf(const std::string& path) {
    std::string folder(SplitPath(path).folder);
    if (folder.empty() || folder != WithTrailingSeparator(folder))
        return; // it ends in a drive's colon, or in a separator of another system
    folder.pop_back();
    (void)platform().files().createFolder(folder);
}

/// Keeps a file whose rows are not in the table, but never in place of one that was kept before. One that
/// cannot be read can still be renamed.
void keep(FileSystem& files, const std::string& path) {
    Check(files.mayWrite(path));
    const std::string backup = MakePlaceForBackup(files, path);
    if (files.kindOf(backup) != EntryKind::missing)
        throw RuntimeError(ErrorNumber::fileAlreadyExists);
    if (files.copy(path, backup) != SystemError::none)
        Check(files.moveOver(path, backup));
}

/// Copies a file that is no table to a name that no file has, unless there is such a copy.
void keepForeign(FileSystem& files, const std::string& path) {
    const std::string first = path + std::string(kBackupEnding);
    std::string backup = first;
    const auto bytes = files.read(path);
    for (int number = 2; files.kindOf(backup) != EntryKind::missing; ++number) {
        if (bytes && files.read(backup).valueOr({}).text() == bytes.value().text())
            return;
        backup = first + std::to_string(number);
    }
    Check(files.removeLink(backup)); // to nothing: the copy would be made where it leads
    Check(files.copy(path, backup));
}

/// Hands what `act` throws on as an error that nobody is bothered with.
template <class Act>
void quietly(Act act) {
    try {
        act();
    } catch (...) {
        throw CurrentError().quietly();
    }
}

} // namespace

clsCommandInterface::clsCommandInterface() {
    traced(sub("Class_Initialize"), [&] {
        commands_.resize(1);
        LoadCommandTable();
    });
}

clsCommandInterface::~clsCommandInterface() {
    traced(sub("Class_Terminate"), [&] { SaveCommandTable(); });
}

void clsCommandInterface::LoadCommandTable() {
    traced(sub("LoadCommandTable"), [&] {
        quietly([&] {
            BuildBuiltInCommands();
            if (!hasBuiltInCommands())
                return; // it has been told
            const std::string path = configuredPath();
            makeFolderOf(path);
            readFile(path);
        });
    });
}

void clsCommandInterface::BuildBuiltInCommands() {
    traced(sub("BuildBuiltInCommands"), [&] { commands_ = BuiltInCommands(); });
}

void clsCommandInterface::readFile(const std::string& path) {
    const auto file = platform().files().read(path);
    if (file.error() == SystemError::fileNotFound || file.error() == SystemError::folderNotFound)
        return; // the table is about to be started
    Check(file.error());
    readForeign_ = !MayBeCommandTable(file.value().text());
    if (!ReadCommandRows(file.value().text(), commands_))
        throw RuntimeError(ErrorNumber::overflow);
    readPath_ = path;
}

void clsCommandInterface::SaveCommandTable() {
    traced(sub("SaveCommandTable"), [&] {
        quietly([&] {
            const std::string path = pathToSave();
            kTableFile.write(path);
            makeFolderOf(path);
            writeFile(path);
        });
    });
}

void clsCommandInterface::writeFile(const std::string& path) {
    if (!hasBuiltInCommands())
        throw RuntimeError(ErrorNumber::outOfMemory); // no row would stand where reading looks for it
    FileSystem& files = platform().files();
    if (path != readPath_ && files.kindOf(path) != EntryKind::missing)
        keep(files, path);
    ReplacementFile file(files, path);
    Check(file.error());
    BufferedText out(file);
    WriteCommandRows(out, commands_);
    out.finish();
    if (path == readPath_ && readForeign_)
        keepForeign(files, path); // not before, so that a save that fails leaves no copy each time
    Check(file.commit());
}

std::int32_t clsCommandInterface::FindCommandIndex(const std::string& sKey) {
    return tracedThrowing(
        procedure(ProcedureKind::Function, "FindCommandIndex"), [&] { return numberOf(sKey); },
        Arg{"sKey", sKey});
}

std::int32_t clsCommandInterface::numberOf(const std::string& key) {
    if (const auto known = numbers_.find(key); known != numbers_.end())
        return known->second;
    while (numbered_ < commands_.upperBound()) {
        const std::string& next = commands_.at(numbered_ + 1).sCMDInfo[kCommandKey];
        numbers_.try_emplace(next, numbered_ + 1);
        ++numbered_;
        if (next == key)
            return numbered_;
    }
    return -1;
}

std::int16_t clsCommandInterface::iTotalCommands() {
    return traced(propertyGet("iTotalCommands"), [&] { return NarrowToInt16(commands_.upperBound()); });
}

std::string clsCommandInterface::sCommandKeyByNum(std::int16_t iCommand) {
    return tracedThrowing(
        propertyGet("sCommandKeyByNum"),
        [&] { return iCommand < 1 ? std::string() : commands_.at(iCommand).sCMDInfo[kCommandKey]; },
        Arg{"iCommand", iCommand});
}

std::string clsCommandInterface::sCommandBytesByKey(const std::string& sKey) {
    return traced(
        propertyGet("sCommandBytesByKey"),
        [&] {
            const std::int32_t number = FindCommandIndex(sKey);
            return number > 0 ? commands_.at(number).sCMDInfo[kCommandBytes] : sKey;
        },
        Arg{"sKey", sKey});
}

void clsCommandInterface::sCommandBytesByKey(const std::string& sKey, const std::string& vData) {
    traced(
        propertyLet("sCommandBytesByKey"), [&] { quietly([&] { setBytes(sKey, vData); }); },
        Arg{"sKey", sKey}, Arg{"vData", vData});
}

void clsCommandInterface::setBytes(const std::string& key, const std::string& bytes) {
    if (key.empty() || bytes.empty())
        return;
    if (const std::int32_t number = FindCommandIndex(key); number >= 1) {
        commands_.at(number).sCMDInfo[kCommandBytes] = bytes;
        return;
    }
    CommandInfoType added{{key, bytes}};
    commands_.resize(NarrowToInt16(commands_.upperBound() + 1));
    commands_.at(commands_.upperBound()) = std::move(added);
}

std::string clsCommandInterface::sCommandBytesByNum(std::int16_t iCommand) {
    return tracedThrowing(
        propertyGet("sCommandBytesByNum"), [&] { return sCommandBytesByKey(sCommandKeyByNum(iCommand)); },
        Arg{"iCommand", iCommand});
}

void clsCommandInterface::sCommandBytesByNum(std::int16_t iCommand, const std::string& vData) {
    tracedThrowing(
        propertyLet("sCommandBytesByNum"), [&] { sCommandBytesByKey(sCommandKeyByNum(iCommand), vData); },
        Arg{"iCommand", iCommand}, Arg{"vData", vData});
}

void clsCommandInterface::SortCommandByLargestFirst() {
    traced(sub("SortCommandByLargestFirst"), [] {});
}

} // namespace qrtVistrelClasses4
