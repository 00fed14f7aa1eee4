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
        settings.BrightnessScheduleBrightnessLevel(number);
    }
    EXPECT_EQ(takeErrors(), (Numbers{9, 9})) << "schedules are 1 to 4";
    settings.ScheduleNumber(4);
    settings.BrightnessScheduleStartTime("4:30 PM");
    EXPECT_EQ(settings.BrightnessScheduleStartTime() + settings.BrightnessScheduleStopTime(),
              "4:30 PM12:00 AM");
    EXPECT_EQ(settings.Value().schedules.at(2).BrightnessScheduleBrightnessLevel, 2);
}

TEST_F(SettingsInfo, LoadsForgivinglyUpToAValueThatDoesNotConvert) {
    const auto [values, error] =
        load("DisplayHeight=32 pixels\r\nDelayMaximum=0\r\nDelayStep=0\r\nWizardMode=tRUE\r\nBMPCrop=-1\r\n"
             "DisplayWidth=\r\n");
    EXPECT_FALSE(error);
    EXPECT_EQ(values.DisplayHeight, 32);
    EXPECT_EQ(std::pair(values.DelayMaximum, values.DelayStep), std::pair(10000.0, 500.0)) << "not 0";
    EXPECT_EQ(std::pair(values.DelayMinimum, values.DisplayWidth), std::pair(0.0, std::int16_t{0}))
        << "a value that is there, and empty";
    EXPECT_TRUE(values.WizardMode && values.BMPCrop);
    EXPECT_EQ(files().kindOf(playfiles_), EntryKind::folder);

    SettingsInfoClass settings;
    settings.DefaultDelay(4);
    const auto partly = load("DisplayHeight=16\r\nDisplayWidth=99999\r\nDefaultDelay=9\r\n");
    EXPECT_EQ(partly.error.value().key, "DisplayWidth");
    EXPECT_EQ(std::pair(partly.values.DisplayHeight, partly.values.DefaultDelay),
              (std::pair<std::int16_t, std::int16_t>(16, 3)));
    settings.GetSettingsFromDisk();
    EXPECT_EQ(takeErrors(), Numbers{6});
    EXPECT_EQ(std::pair(settings.DisplayHeight(), settings.DefaultDelay()),
              (std::pair<std::int16_t, std::int16_t>(16, 4)));
}

TEST_F(SettingsInfo, ReportsWhatCannotBeSavedAsItIs) {
    const std::string folder = host_.inLibrary("elsewhere");
    WriteSetting("Vistrel3", "Settings", "AppPath", folder);
    files().makeFolders(folder);
    const std::string path = PreferencesPath().value();
    int kept = 0;
    for (const std::string& text : {std::string(254, 'a'), std::string(255, 'a'), std::string("a \"b\" c"),
                                    std::string(" a"), std::string("a\nb"), std::string("'a'")}) {
        const bool readsBack = WritePreference(path, "Key", text).readsBack;
        EXPECT_EQ(readsBack, ReadPreference(path, "Key", "") == text) << text;
        kept += readsBack ? 1 : 0;
    }
    EXPECT_EQ(kept, 2);
    SettingsInfoClass settings;
    settings.WriteSetting("Key", "kept");
    files().setReadOnly(path);
    EXPECT_EQ(WritePreference(path, "Key", "refused").error.value().number(), 75);
    settings.WriteSetting("Key", "refused");
    settings.SaveSettingsToDisk();
    EXPECT_EQ(takeErrors(), Numbers{75}) << "but none for a single key, which interrupts nobody";
    EXPECT_EQ(settings.GetPrivateSetting("Key", ""), "kept");
    EXPECT_EQ(files().fileNames(), Texts{path});
}

TEST_F(SettingsInfo, LoadsWithoutADocumentsFolder) {
    host_.machine.specialFolders[kDocumentsFolder] = host_.inLibrary("gone");
    SettingsInfoClass().GetSettingsFromDisk();
    EXPECT_TRUE(host_.reports.all.at(0).error.isQuiet());
    EXPECT_EQ(takeErrors(), Numbers{76}) << "only logged";
    host_.machine.specialFolders.clear();
    EXPECT_EQ(load("").values.LastPlayfilePath, "");
}

} // namespace
} // namespace qrtVistrelClasses4
