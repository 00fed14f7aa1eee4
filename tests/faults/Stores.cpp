#include "Stores.h"

#include "platform/FileRegistryStore.h"
#include "playfile/LegacyBytes.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/MostRecentlyUsed.h>
#include <qrtVistrelClasses4/SettingsInfoClass.h>
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>
#include <memory>

namespace qrtVistrelClasses4 {
namespace {

const char* wordFor(Version version) { return version == Version::next ? "next" : "old"; }

std::size_t reportCount(TestHost& host, bool countsQuiet) {
    constexpr int keptCopy = 58; // is reported by a save that works
    const auto counts = [=](const ErrorReport& report) {
        return !report.error.isQuiet() || (countsQuiet && report.error.number() != keptCopy);
    };
    return static_cast<std::size_t>(std::ranges::count_if(host.reports.all, counts)) +
           host.machine.messageBoxes().shown.size();
}

/// Whether `work` ends without a message and a report. Quiet reports may be ignored.
template <class Work>
bool untold(TestHost& host, Work work, bool countsQuiet = false) {
    const std::size_t before = reportCount(host, countsQuiet);
    work();
    return reportCount(host, countsQuiet) == before;
}

Subject currentPlayfile(TestHost&, const std::string& path) {
    const auto playfile = std::make_shared<FrameInfoClass>();
    playfile->SetSuppressMessages(true);
    return {[=](Version version) {
                playfile->TotalFrames(version == Version::next ? 3 : 2);
                for (std::int16_t frame = 1; frame <= playfile->TotalFrames(); ++frame) {
                    playfile->CurrentFrame(frame);
                    playfile->FrameName(wordFor(version) + std::string(100, 'x')); // which takes memory
                }
            },
            [=] { return playfile->WritePlayfileToDisk(path); },
            [=] { return playfile->GetPlayfileFromDisk(path); },
            [=] {
                std::string text;
                for (std::int16_t frame = 1; frame <= playfile->TotalFrames(); ++frame) {
                    playfile->CurrentFrame(frame);
                    text += playfile->FrameName() + playfile->CurrentLineText() + ' ';
                }
                return text;
            }};
}

Subject xmlExport(TestHost&, const std::string& path) {
    const auto playfile = std::make_shared<FrameInfoClass>();
    playfile->CurrentFrame(1);
    return {[=](Version version) { playfile->FrameName(wordFor(version)); },
            [=] { return playfile->WriteXMLToDisk(path.substr(0, path.rfind('.'))); }, nullptr, nullptr};
}

Subject olderPlayfile(TestHost& host, const std::string& path) {
    Subject subject = currentPlayfile(host, path);
    subject.hold = [&host, path](Version version) {
        const std::string text = wordFor(version);
        host.machine.files().put(path, legacyPlayfile({{.text = text}, {.text = text}}));
    };
    subject.save = [] { return true; };
    return subject;
}

Subject signs(TestHost& host, const std::string& path) {
    const auto signs = std::make_shared<DisplayDatabaseClass>();
    // Both calls put the folder in front of the name, in place. Setting it back takes no memory.
    const auto name = std::make_shared<std::string>(path);
    const std::string given(SplitPath(path).name);
    return {
        [=](Version version) {
            while (signs->TotalDisplays() > 0)
                signs->RemoveDisplay(1);
            for (const char* sign : {"Pier", "Gate", "Office"})
                if (signs->AddNewDisplay(sign); version == Version::next)
                    signs->AddNewDisplay(sign + std::string(" next"));
        },
        [=, &host] { return untold(host, [&] { signs->WriteAllDisplaysToDisk(*name = given); }); },
        [=, &host] { return untold(host, [&] { signs->RetrieveAllDisplayInfoFromDisk(*name = given); }); },
        [=] {
            std::string text;
            for (std::int16_t number = 1; number <= signs->TotalDisplays(); ++number) {
                signs->CurrentDisplayNumber(number);
                text += signs->DisplayName() + ' ';
            }
            return text;
        }};
}

Subject preferences(TestHost& host, const std::string&) {
    const auto settings = std::make_shared<SettingsInfoClass>();
    return {[=](Version version) { settings->DisplayID(wordFor(version)); },
            [=, &host] { return untold(host, [&] { settings->SaveSettingsToDisk(); }); },
            [=, &host] { return untold(host, [&] { settings->GetSettingsFromDisk(); }); },
            [=] { return settings->DisplayID(); }};
}

/// The next version has a new name in front. A name that is in the list already would first be removed by a
/// save of its own.
Subject recentFiles(TestHost& host, const std::string& path) {
    const auto recent = std::make_shared<std::optional<MostRecentlyUsed>>(std::in_place);
    const auto version = std::make_shared<Version>();
    return {[=, &host](Version held) {
                *version = held;
                if (held == Version::old)
                    host.machine.files().put(path, "\"a.playfile\"\r\n\"b.playfile\"\r\n\"c\"\r\n\"\"\r\n");
            },
            [=, &host] {
                return *version == Version::old ||
                       untold(host, [&] { (*recent)->AddFileToMostRecentlyUsedList("d.playfile"); });
            },
            [=, &host] { return untold(host, [&] { recent->emplace(); }); },
            [=] {
                std::string text;
                for (std::int16_t number = 1; number <= (*recent)->TotalFilesInList(); ++number)
                    text += (*recent)->GetFileName(number) + ' ';
                return text;
            }};
}

/// The table is read by the constructor of its object, and saved by the destructor.
Subject commandTable(TestHost& host, const std::string&) {
    const auto table = std::make_shared<std::optional<clsCommandInterface>>();
    return {
        [=](Version version) {
            if (!*table)
                table->emplace();
            (*table)->sCommandBytesByKey("##FIRST", "a");
            if (version == Version::next)
                (*table)->sCommandBytesByKey("##SECOND", "b");
        },
        [=, &host] {
            return untold(
                host, [&] { table->reset(); }, true);
        },
        [=, &host] {
            return untold(
                host, [&] { table->emplace(); }, true);
        },
        [=] { return (*table)->sCommandBytesByKey("##FIRST") + (*table)->sCommandBytesByKey("##SECOND"); }};
}

/// The file that keeps registry settings, one value among others.
Subject registryFile(TestHost& host, const std::string& path) {
    const auto store = std::make_shared<FileRegistryStore>(host.machine.files(), path);
    const auto text = std::make_shared<std::string>();
    const RegistryKey key{RegistryHive::localMachine, "Software\\Brivox\\Test"};
    if (!host.machine.files().content(path))
        host.machine.files().put(path, "[HKEY_LOCAL_MACHINE\\Software\\Other]\n\"Name\"=\"kept\"\n");
    return {[=](Version version) { *text = wordFor(version); },
            [=] { return store->writeString(key, "Value", *text) == SystemError::none; },
            [=] {
                *text = store->readString(key, "Value").valueOr("");
                return true;
            },
            [=] { return *text; }};
}

} // namespace

const std::vector<Store>& Stores() {
    static const std::vector<Store> stores{
        {"Playfile", "a.playfile", currentPlayfile, 0, "Unable to save playfile"},
        {"LegacyPlayfile", "a.PL2", olderPlayfile, Store::onlyLoads},
        {"XmlExport", "a.xml", xmlExport, Store::onlySaves, "Unable to save playfile"},
        {"Signs", std::string(100, 's') + ".dat", signs, Store::keepsCopy | Store::inPlace | Store::hasPlace,
         "Error Occurred"},
        {"Preferences", "VistrelLite.ini", preferences, Store::loadsSilently | Store::hasPlace},
        {"RecentFiles", "VistrelLite.MRU", recentFiles, Store::hasPlace},
        {"CommandTable", JoinPath("db", "VistrelLite.dat"), commandTable,
         Store::keepsCopy | Store::mayStart | Store::hasPlace},
        {"RegistryFile", JoinPath("settings", "registry"), registryFile, Store::loadsSilently},
    };
    return stores;
}

std::vector<Store> StoresThat(const std::function<bool(const Store&)>& belong) {
    std::vector<Store> rows = Stores();
    std::erase_if(rows, std::not_fn(belong));
    return rows;
}

Stage::Stage(const Store& row, const Files& files) : store(row) {
    for (const auto& [name, content] : files)
        host.machine.files().put(name, content);
    renew();
    if (files.empty()) {
        subject.saveAs(Version::old);
        renew();
    }
    forgetMessages();
}

void Stage::forgetMessages() {
    host.reports.all.clear();
    host.machine.messageBoxes().shown.clear();
}

bool Stage::hasTemporaryFiles() {
    return std::ranges::any_of(host.machine.files().fileNames(),
                               [](const auto& name) { return name.ends_with(".tmp"); });
}

Contents::Contents(const Store& store) {
    for (const Version version : {Version::old, Version::next}) {
        Stage stage(store);
        if (version == Version::next)
            stage.subject.saveAs(version);
        const auto number = static_cast<std::size_t>(version);
        file.at(number) = stage.file().value();
        if (store.loads()) {
            stage.renew();
            stage.subject.load();
            text.at(number) = stage.subject.text();
        }
    }
}

std::optional<Version> Contents::versionOf(const std::optional<std::string>& content) const {
    for (const Version version : {Version::old, Version::next})
        if (content == file.at(static_cast<std::size_t>(version)))
            return version;
    return {};
}

} // namespace qrtVistrelClasses4
