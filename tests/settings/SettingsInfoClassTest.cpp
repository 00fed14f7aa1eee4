#include <qrtVistrelClasses4/SettingsInfoClass.h>

#include "HostTest.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

namespace qrtVistrelClasses4 {
namespace {

class SettingsInfo : public HostTest {
protected:
    PreferencesOutcome load(const std::string& lines) {
        files().put(iniPath_, "[VistrelLite]\r\n" + lines);
        return LoadPreferences();
    }

    const std::string iniPath_ = host_.inLibrary("VistrelLite.ini");
    const std::string playfiles_ =
        JoinPath(host_.machine.specialFolders.at(kDocumentsFolder), "Vistrel Sign Playfiles");
};

TEST_F(SettingsInfo, StartsWithDefaultsWithoutTouchingTheDiskAndSavesThemInOrder) {
    SettingsInfoClass settings;
    EXPECT_EQ(settings.ClassDebugID() + 1, SettingsInfoClass().ClassDebugID());
    EXPECT_EQ(files().fileNames(), Texts());
    EXPECT_EQ(files().kindOf(playfiles_), EntryKind::missing);
    settings.SaveSettingsToDisk("any name");
    std::string schedules;
    for (const std::string number : {"1", "2", "3", "4"})
        schedules += "ScheduledStartTime" + number + "=12:00 AM\r\nScheduledStopTime" + number +
                     "=12:00 AM\r\nScheduledBrightnessLevel" + number + "=5\r\n";
    EXPECT_EQ(files().content(iniPath_),
              "[VistrelLite]\r\nLastGraphicPath=" + host_.inLibrary("Brivox Graphics") +
                  "\r\nDisplayHeight=64\r\nDisplayWidth=128\r\nDelayMinimum=0\r\nDelayMaximum=10000\r\n"
                  "DelayStep=500\r\nWizardMode=False\r\nSwitchOperated=False\r\nDisplayID=1\r\n"
                  "ScrollPauseDelay=5\r\nTemperatureProbeAdjustment=0\r\nTimeZoneAdjustment=0\r\n"
                  "ResetOnGetParameters=True\r\nScrollingTextSpeed=2\r\nUseDaylightSavingsTime=True\r\n"
                  "DisplayBrightnessLevel=5\r\nSensorLimitMinimum=3\r\nSensorLimitMaximum=7\r\n"
                  "ScheduleDefaultBrightness=5\r\n" +
                  schedules + "DoesDisplaySupporColor=False\r\nLastPlayfilePath=" + playfiles_ +
                  "\r\nSupportOldFirmware=False\r\nPlayAutoEnable=True\r\nChooseDispGetInfo=False\r\n"
                  "ChooseDispTransmit=False\r\nAVIFixedDelay=False\r\nAVIDelay=50\r\nDefaultDelay=3\r\n"
                  "BroadcastTRDelay=500\r\nShowImage=True\r\nAVICrop=False\r\nBMPCrop=False\r\n");
    EXPECT_EQ(LoadPreferences().values, settings.Value());
}

TEST_F(SettingsInfo, AddressesTheScheduleUnderItsCursor) {
    SettingsInfoClass settings;
    for (std::int16_t number = 0; number <= 5; ++number) {
        settings.ScheduleNumber(number);
        settings.BrightnessScheduleStartTime(std::to_string(number));
    }
    EXPECT_EQ(takeErrors(), (Numbers{9, 9})) << "schedules are 1 to 4";
    settings.ScheduleNumber(2);
    EXPECT_EQ(settings.BrightnessScheduleStartTime() + settings.BrightnessScheduleStopTime(), "212:00 AM");
}

TEST_F(SettingsInfo, LoadsEachValueForItselfAndForgivingly) {
    Preferences expected = SettingsInfoClass().Value();
    expected.DisplayHeight = 32;
    expected.DisplayWidth = 0; // a value that is there, and empty
    expected.BMPCrop = expected.WizardMode = true;
    const std::string good =
        "DisplayHeight=32 pixels\r\nDelayMaximum=0\r\nDelayStep=0\r\nBMPCrop=-1\r\nDisplayWidth=\r\n";
    EXPECT_EQ(load(good + "WizardMode=tRUE\r\n").values, expected);
    EXPECT_EQ(files().kindOf(playfiles_), EntryKind::folder);
    (void)load("WizardMode=maybe\r\nDefaultDelay=99999\r\nScheduledBrightnessLevel4=1e9\r\n");
    SettingsInfoClass settings;
    settings.DefaultDelay(4);
    settings.GetSettingsFromDisk();
    EXPECT_EQ(host_.reports.all.at(0).error.description(),
              "Type mismatch: WizardMode, ScheduledBrightnessLevel4, DefaultDelay");
    EXPECT_EQ(takeErrors(), Numbers{13});
    EXPECT_EQ(settings.DefaultDelay(), 4) << "it kept what it had";
}

TEST_F(SettingsInfo, ReportsWhatCannotBeSaved) {
    const std::string folder = host_.inLibrary("elsewhere");
    WriteSetting("Vistrel3", "Settings", "AppPath", folder);
    files().makeFolders(folder);
    const std::string path = PreferencesPath().value();
    SettingsInfoClass settings;
    settings.WriteSetting("Key", "kept");
    files().setReadOnly(path);
    EXPECT_EQ(WritePreference(path, "Key", "refused").error.value().number(), 75);
    settings.WriteSetting("Key", "refused");
    EXPECT_EQ(settings.LastErrorNumber(), 75);
    settings.SaveSettingsToDisk();
    std::vector<bool> areQuiet;
    for (const ErrorReport& report : host_.reports.all)
        areQuiet.push_back(report.error.isQuiet());
    EXPECT_EQ(areQuiet, (std::vector{true, false})) << "a single key interrupts nobody";
    EXPECT_EQ(takeErrors(), (Numbers{75, 75}));
    EXPECT_EQ(settings.GetPrivateSetting("Key", ""), "kept");
    EXPECT_EQ(files().fileNames(), Texts{path});
}

TEST_F(SettingsInfo, LoadsWithoutADocumentsFolder) {
    host_.machine.specialFolders[kDocumentsFolder] = host_.inLibrary("gone");
    SettingsInfoClass().GetSettingsFromDisk();
    EXPECT_EQ(takeErrors(), Numbers());
    host_.machine.specialFolders[kDocumentsFolder] = host_.inLibrary("a file");
    files().put(JoinPath(host_.inLibrary("a file"), "Vistrel Sign Playfiles"), "");
    SettingsInfoClass().GetSettingsFromDisk();
    EXPECT_TRUE(host_.reports.all.at(0).error.isQuiet());
    EXPECT_EQ(takeErrors(), Numbers{58}) << "only logged";
    host_.machine.specialFolders.clear();
    EXPECT_EQ(load("").values.LastPlayfilePath, "");
}

} // namespace
} // namespace qrtVistrelClasses4
