// All preferences, loaded and saved, against an INI library that opens the file once, careful code for the
// same job, and the least that saving durably costs; one preference alone, against a search in the file.
#include "bench/CarefulSettings.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "frame/Conversions.h"
#include "platform/Platform.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <SimpleIni.h>

#include <array>
#include <filesystem>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfSimpleIni = 0.5;
constexpr double kMostOfCareful = 2;
constexpr double kMostOfDurable = 2;
constexpr double kMostOfSearch = 8;
constexpr double kUsualOfSearch = 4;

constexpr const char* kSection = "VistrelLite";
constexpr std::int16_t kWidths[] = {128, 256};

void fromIni(std::string& value, const CSimpleIniA& ini, const char* key, const char* otherwise) {
    value = ini.GetValue(kSection, key, otherwise);
}
void fromIni(bool& value, const CSimpleIniA& ini, const char* key, const char* otherwise) {
    value = ini.GetBoolValue(kSection, key, TextToBoolean(otherwise));
}
void fromIni(double& value, const CSimpleIniA& ini, const char* key, const char* otherwise) {
    value = ini.GetDoubleValue(kSection, key, LeadingNumber(otherwise));
}
void fromIni(std::int16_t& value, const CSimpleIniA& ini, const char* key, const char* otherwise) {
    value = static_cast<std::int16_t>(ini.GetLongValue(kSection, key, TextToInt32(otherwise)));
}

void toIni(const std::string& value, CSimpleIniA& ini, const char* key) {
    ini.SetValue(kSection, key, value.c_str());
}
void toIni(bool value, CSimpleIniA& ini, const char* key) { ini.SetBoolValue(kSection, key, value); }
void toIni(double value, CSimpleIniA& ini, const char* key) { ini.SetDoubleValue(kSection, key, value); }
void toIni(std::int16_t value, CSimpleIniA& ini, const char* key) { ini.SetLongValue(kSection, key, value); }

Preferences loadWithSimpleIni(const std::string& path) {
    CSimpleIniA ini;
    Require(ini.LoadFile(path.c_str()) == SI_OK, "cannot load " + path);
    Preferences settings;
    ForEachPreference(
        [&](const auto& placed, auto& value) {
            fromIni(value, ini, placed.key().c_str(), placed.row.defaultText.data());
        },
        settings);
    return settings;
}

/// Sections and remarks of others are in the file, so saving starts with loading.
void saveWithSimpleIni(const Preferences& settings, const std::string& path) {
    CSimpleIniA ini;
    ini.SetSpaces(false);
    Require(ini.LoadFile(path.c_str()) == SI_OK, "cannot load " + path);
    ForEachPreference([&](const auto& placed, const auto& value) { toIni(value, ini, placed.key().c_str()); },
                      settings);
    Require(ini.SaveFile(path.c_str(), false) == SI_OK, "cannot save " + path);
}

Preferences loadOwn() {
    SettingsInfoClass settings;
    settings.GetSettingsFromDisk();
    return settings.Value();
}

/// The files of each contestant. They hold the same preferences.
struct Files {
    explicit Files(const std::string& folder)
        : own(folder + "/VistrelLite.ini"), peer(folder + "/peer.ini"), careful(folder + "/careful.ini") {}
    std::array<std::string, 3> all() const { return {own, peer, careful}; }

    std::string own, peer, careful;
};

/// Each contestant must read what any has written, and keep what is not its own.
void check(const SettingsInfoClass& settings, const Files& files) {
    Require(loadOwn() == settings.Value(), "the library reads other preferences than it wrote");
    for (const std::string& path : files.all()) {
        Require(ReadWholeFile(path).text().find("[Others]") != std::string_view::npos, "a section was lost");
        Require(loadWithSimpleIni(path) == settings.Value(),
                "SimpleIni reads other preferences from " + path);
        Require(LoadPreferencesCarefully(path) == settings.Value(),
                "careful code reads other preferences from " + path);
    }
}

void makeFiles(const Files& files) {
    for (const std::string& path : files.all())
        WriteNewFile(path, "; preferences\r\n\r\n[Others]\r\nWindow=10,20,640,480\r\nLanguage=en\r\n");
    SettingsInfoClass settings;
    settings.DelayStep(0.25);
    settings.WizardMode(true);
    settings.SaveSettingsToDisk();
    saveWithSimpleIni(settings.Value(), files.peer);
    SavePreferencesCarefully(settings.Value(), files.careful);
    check(settings, files);
}

void registerLoad(const Files& files) {
    RegisterWork("settings/load", [](benchmark::State& state) {
        SettingsInfoClass settings;
        TimeWork(state, [&] { settings.GetSettingsFromDisk(); });
    });
    RegisterWork("settings/load/SimpleIni", [files](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(loadWithSimpleIni(files.peer)); });
    });
    RegisterWork("settings/load/careful", [files](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(LoadPreferencesCarefully(files.careful)); });
    });
}

/// Where nothing has been stored yet but preferences. A first load is that of a program that has just
/// started.
void registerLoadWithoutStore(const std::string& home) {
    std::filesystem::create_directory(home);
    const Files files(home);
    const auto machine = [home] { return makePlatform({home}); };
    {
        const auto own = machine();
        const ScopedPlatform use(*own);
        makeFiles(files);
    }
    Require(!std::filesystem::exists(home + "/registry"), "there is a store");
    RegisterWork("settings/load/no store", [machine](benchmark::State& state) {
        const auto own = machine();
        const ScopedPlatform use(*own);
        SettingsInfoClass settings;
        TimeWork(state, [&] { settings.GetSettingsFromDisk(); });
    });
    RegisterWork("settings/load/first", [machine](benchmark::State& state) {
        TimeWork(state, [&] {
            const auto own = machine();
            const ScopedPlatform use(*own);
            benchmark::DoNotOptimize(loadOwn());
        });
    });
}

/// Preferences that did not change would not be written at all.
template <class Save>
void registerChanging(const std::string& name, Save save) {
    RegisterWork(name, [save](benchmark::State& state) {
        Preferences settings = SettingsInfoClass().Value();
        TimeWork(state, [&] {
            settings.DisplayWidth = settings.DisplayWidth == kWidths[0] ? kWidths[1] : kWidths[0];
            save(settings);
        });
    });
}

void registerSave(const Files& files) {
    RegisterWork("settings/save", [](benchmark::State& state) {
        SettingsInfoClass settings;
        TimeWork(state, [&] {
            settings.DisplayWidth(settings.DisplayWidth() == kWidths[0] ? kWidths[1] : kWidths[0]);
            settings.SaveSettingsToDisk();
        });
    });
    registerChanging("settings/save/SimpleIni",
                     [files](const Preferences& settings) { saveWithSimpleIni(settings, files.peer); });
    registerChanging("settings/save/careful", [files](const Preferences& settings) {
        SavePreferencesCarefully(settings, files.careful);
    });
    RegisterWork("settings/save/durable", [files](benchmark::State& state) {
        const WholeFile finished = ReadWholeFile(files.careful);
        TimeWork(state, [&] { WriteDurably(files.careful, finished.text()); });
    });
}

/// Reads the file, and searches it for the key.
std::string readOne(const std::string& path, std::string_view key) {
    const WholeFile file = ReadWholeFile(path);
    const std::size_t start = file.text().find(key) + key.size();
    return std::string(file.text().substr(start, file.text().find('\r', start) - start));
}

void registerOneKey(const Files& files) {
    Require(SettingsInfoClass().GetPrivateSetting("DelayStep", "") == readOne(files.careful, "\nDelayStep="),
            "the search finds another value");
    RegisterWork("settings/one key", [](benchmark::State& state) {
        const SettingsInfoClass settings;
        TimeWork(state, [&] { benchmark::DoNotOptimize(settings.GetPrivateSetting("DelayStep", "")); });
    });
    RegisterWork("settings/one key/limit", [files](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(readOne(files.careful, "\nDelayStep=")); });
    });
}

} // namespace

std::vector<Ratio> SettingsSubject(const BenchFolder& folder) {
    WriteSetting(std::string(kVistrel3), std::string(kSettingsSection), "AppPath", folder.path());
    const Files files(folder.path());
    makeFiles(files);
    registerLoad(files);
    registerLoadWithoutStore(folder.file("settings"));
    registerSave(files);
    registerOneKey(files);

    const std::string load = "settings/load", save = "settings/save", one = "settings/one key";
    std::vector<Ratio> ratios;
    for (const auto& [subject, work, bound] :
         {std::tuple("load all settings", load, Bound::must),
          std::tuple("the same without a store", load + "/no store", Bound::must),
          std::tuple("the first time", load + "/first", Bound::aim)}) {
        ratios.push_back({subject, work, load + "/SimpleIni", bound, kMostOfSimpleIni});
        ratios.push_back({subject, work, load + "/careful", Bound::aim, kMostOfCareful});
    }
    ratios.push_back({"save all settings", save, save + "/SimpleIni", Bound::must, kMostOfSimpleIni});
    ratios.push_back({"save all settings", save, save + "/durable", Bound::aim, kMostOfDurable});
    ratios.push_back({"save all settings", save, save + "/careful", Bound::aim, kMostOfCareful});
    ratios.push_back({"read one setting", one, one + "/limit", Bound::must, kMostOfSearch});
    ratios.push_back({"read one setting", one, one + "/limit", Bound::aim, kUsualOfSearch});
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
