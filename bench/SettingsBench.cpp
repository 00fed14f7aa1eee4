// All preferences, loaded and saved, against an INI library that opens the file once.
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "frame/Conversions.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include <SimpleIni.h>

namespace qrtVistrelClasses4::bench {
namespace {

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

/// Both contestants must read what either has written, and keep what is not theirs.
void check(const SettingsInfoClass& settings, const std::string& own, const std::string& peer) {
    for (const std::string& path : {own, peer})
        Require(ReadWholeFile(path).text().find("[Others]") != std::string_view::npos, "a section was lost");
    Require(loadOwn() == settings.Value(), "the library reads other preferences than it wrote");
    Require(loadWithSimpleIni(own) == settings.Value(), "SimpleIni reads other preferences from " + own);
    Require(loadWithSimpleIni(peer) == settings.Value(), "SimpleIni reads other preferences from " + peer);
}

void registerLoad(const std::string& peer) {
    RegisterWork("settings/load", [](benchmark::State& state) {
        SettingsInfoClass settings;
        TimeWork(state, [&] { settings.GetSettingsFromDisk(); });
    });
    RegisterWork("settings/load/SimpleIni", [peer](benchmark::State& state) {
        TimeWork(state, [&] { benchmark::DoNotOptimize(loadWithSimpleIni(peer)); });
    });
}

void registerSave(const std::string& peer) {
    RegisterWork("settings/save", [](benchmark::State& state) {
        SettingsInfoClass settings;
        TimeWork(state, [&] {
            // Preferences that did not change would not be written at all.
            settings.DisplayWidth(settings.DisplayWidth() == kWidths[0] ? kWidths[1] : kWidths[0]);
            settings.SaveSettingsToDisk();
        });
    });
    RegisterWork("settings/save/SimpleIni", [peer](benchmark::State& state) {
        Preferences settings = SettingsInfoClass().Value();
        TimeWork(state, [&] {
            settings.DisplayWidth = settings.DisplayWidth == kWidths[0] ? kWidths[1] : kWidths[0];
            saveWithSimpleIni(settings, peer);
        });
    });
}

} // namespace

std::vector<Ratio> SettingsSubject(const BenchFolder& folder) {
    WriteSetting(std::string(kVistrel3), std::string(kSettingsSection), "AppPath", folder.path());
    const std::string own = folder.file("VistrelLite.ini");
    const std::string peer = folder.file("peer.ini");
    for (const std::string& path : {own, peer})
        WriteNewFile(path, "; preferences\r\n\r\n[Others]\r\nWindow=10,20,640,480\r\nLanguage=en\r\n");
    SettingsInfoClass settings;
    settings.DelayStep(0.25);
    settings.WizardMode(true);
    settings.SaveSettingsToDisk();
    saveWithSimpleIni(settings.Value(), peer);
    check(settings, own, peer);
    registerLoad(peer);
    registerSave(peer);
    return {{"load all settings", "settings/load", "settings/load/SimpleIni", Bound::must, 1.0},
            {"save all settings", "settings/save", "settings/save/SimpleIni", Bound::must, 1.0}};
}

} // namespace qrtVistrelClasses4::bench
